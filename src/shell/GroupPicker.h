#pragma once

#include "files/FolderItem.h"
#include "search/SelectedDic.h"

#include <QObject>

#include <functional>
#include <string>

namespace velmarin {

class AnchoredLayout;
class App;
class MainWindow;
class PopupMenu;

/// The group pop-up of one main window and what a pick in it does: no group stands in two windows.
class GroupPicker : public QObject {
    Q_OBJECT

  public:
    GroupPicker(App& app, MainWindow& window, QWidget* parent, AnchoredLayout& layout);

    PopupMenu* SelectDicFolPU() const { return SelectDicFolPU_; }

    /// Fills the pop-up with the groups that stand in `DictionaryFolder` now.
    void mMakeSelectDicPU();
    /// Picks the row where there is exactly one.
    void pickOnlyRow();
    /// Picks the row of that name, case ignored. False where there is none.
    bool pickNamed(const std::string& name);
    int rowCount() const;
    WindowPick pick() const;
    /// The folder of the picked row; nil where none is picked.
    FolderItem pickedFolder() const;
    /// Takes the pick back without any event: what a closed window answers from then on.
    void dropPick();

  private:
    void SelectDicFolPU_Change();
    void SelectDicFolPU_MouseEnter();
    /// The help tag: which groups cannot be picked, or, where there are none, where they belong.
    void showHelp();

    App& app_;
    MainWindow& window_;
    PopupMenu* SelectDicFolPU_;
    /// The row when the mouse last entered: the row to go back to after a refused pick.
    int pSelectedDicIndex_ = -1;
};

} // namespace velmarin
