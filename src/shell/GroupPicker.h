#pragma once

#include "files/FolderItem.h"
#include "search/SelectedDic.h"

#include <QObject>

#include <string>

namespace velmarin {

class AnchoredLayout;
class BusyState;
class PopupMenu;
class WindowListPort;
struct WindowServices;

/// What a group pop-up asks of its window.
class GroupPort {
  public:
    virtual ~GroupPort() = default;

    /// The pop-up is pressed.
    virtual void SelectDicFolPU_MouseDown() = 0;
    /// Saves the group being left and shows the one in `folder`. False if it cannot be read: the window then has no
    /// group.
    virtual bool changeGroup(const FolderItem& folder) = 0;
    /// The new group is shown, and counts as in use.
    virtual void groupChanged() = 0;
};

/// The group pop-up of a main window. It refuses a group that is in use in any window.
class GroupPicker : public QObject {
    Q_OBJECT

  public:
    GroupPicker(GroupPort& window, const WindowServices& services, QWidget* parent, AnchoredLayout& layout);

    PopupMenu* SelectDicFolPU() const { return SelectDicFolPU_; }

    /// Fills the pop-up with the groups that are in `DictionaryFolder` now.
    void mMakeSelectDicPU();
    /// Picks the row if there is exactly one.
    void pickOnlyRow();
    /// Picks the row of that name, ignoring case. False if there is none.
    bool pickNamed(const std::string& name);
    int rowCount() const;
    WindowPick pick() const;
    /// The folder of the picked row; nil if none is picked.
    FolderItem pickedFolder() const;
    /// Clears the pick without a signal; pick() then returns row -1, as for a closed window.
    void dropPick();

  private:
    void SelectDicFolPU_Change();
    void SelectDicFolPU_MouseEnter();
    /// Sets the tool tip: which groups cannot be picked or, if there are none, where they belong.
    void showHelp();

    GroupPort& window_;
    BusyState& busy_;
    WindowListPort& windows_;
    const FolderItem& pDictionaryFolder_;
    std::string& pSelectedDicTag_;
    PopupMenu* SelectDicFolPU_;
    /// The row when the mouse last entered, which a refused pick restores.
    int pSelectedDicIndex_ = -1;
};

} // namespace velmarin
