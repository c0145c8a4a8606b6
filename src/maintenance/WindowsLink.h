#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

class QWidget;

namespace velmarin {

/// What the maintenance commands need of the application and its main windows. A window is named by its position in
/// `MainWinList`, from which none is ever removed.
class WindowsLink {
  public:
    virtual ~WindowsLink() = default;

    virtual FolderItem pDictionaryFolder() const = 0;
    /// The main window to which dialogs belong; null where there is none.
    virtual QWidget* frontWindow() const = 0;
    /// Gives a new window that stands beside the main windows what all windows have.
    virtual void prepare(QWidget* window) = 0;

    // After an install.
    virtual int windowCount() const = 0;
    /// Rebuilds the window's group pop-up (`mMakeSelectDicPU`), takes its pick back, empties `pDictionaryItem`, runs
    /// `mInitialize`, empties the caption of tab 0 and repaints the window at once.
    virtual void startAnew(int window) = 0;

    // The order editor.
    /// The dictionaries of the window's group, in their present order.
    virtual std::vector<std::string> dictionaryNames(int window) const = 0;
    virtual std::string pDicGroupName(int window) const = 0;
    /// Replaces `pNewDicPref`.
    virtual void setNewDicPref(std::vector<std::string> lines) = 0;
    /// Closes the page image window if it is shown.
    virtual void closePageImageWindow() = 0;
    virtual void mWritePreferences_DicGroup(int window) = 0;
    virtual void ReadDictionaryFolder(int window, const FolderItem& group) = 0;
    /// Empties `SearchEF`, enables `OKBT`, `SeparatelyCB` and `SubWinBV`, takes the picture from `MainCanvas` and
    /// repaints it at once.
    virtual void readyForSearch(int window) = 0;
};

} // namespace velmarin
