#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

class QWidget;

namespace velmarin {

/// What the maintenance commands need from the application and its main windows. A window is identified by its position
/// in `MainWinList`, which no window ever leaves.
class WindowsPort {
  public:
    virtual ~WindowsPort() = default;

    virtual FolderItem pDictionaryFolder() const = 0;
    /// The parent window for dialogs; null if there is none.
    virtual QWidget* frontWindow() const = 0;
    /// Gives a new top-level window the shortcuts that all windows have.
    virtual void prepare(QWidget* window) = 0;

    // After an install.
    virtual int windowCount() const = 0;
    /// Resets the window to the no-group state: rebuilds its group pop-up (`mMakeSelectDicPU`) without a pick, drops
    /// its dictionaries and tabs, clears the caption of tab 0 and repaints at once.
    virtual void resetToNoGroup(int window) = 0;

    // The order editor.
    /// The dictionaries of the window's group, in their current order.
    virtual std::vector<std::string> dictionaryNames(int window) const = 0;
    virtual std::string pDicGroupName(int window) const = 0;
    /// Replaces `pNewDicPref`.
    virtual void setNewDicPref(std::vector<std::string> lines) = 0;
    /// Whether a group is picked; not after an install, nor while the window is closed.
    virtual bool hasGroup(int window) const = 0;
    /// Writes `pNewDicPref` to the group's `DictionaryPreferences.txt`, then picks the group in the window if the
    /// window is open and no other window shows the group.
    virtual void writeOrderAndPick(int window, const FolderItem& group) = 0;
    /// Closes the page image window if it is open.
    virtual void closePageImageWindow() = 0;
    virtual void mWritePreferences_DicGroup(int window) = 0;
    virtual void ReadDictionaryFolder(int window, const FolderItem& group) = 0;
    /// Clears `SearchEF`, enables `OKBT`, `SeparatelyCB` and `SubWinBV`, removes the picture of `MainCanvas` and
    /// repaints it at once.
    virtual void readyForSearch(int window) = 0;
};

} // namespace velmarin
