#pragma once

#include "shell/Commands.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindowParts.h"
#include "shell/PlacementKeeper.h"

#include <QMainWindow>

#include <string>
#include <string_view>

namespace velmarin {

class MenuBar;

/// A main window: shows and leaves groups, and passes events and commands on to its parts.
class MainWindow : public QMainWindow, private GroupPort {
    Q_OBJECT

  public:
    explicit MainWindow(const WindowServices& services);
    ~MainWindow() override;

    /// True for the first window only: only that one saves its placement.
    bool pDefaultMainWindow = false;
    /// Its position in MainWinList, and the index of its row in the menu "Mainwindow".
    int pMyIndex = 0;

    const MainWindowParts& parts() const { return parts_; }
    WindowModel& model() { return parts_.model; }
    const GroupModel& group() const { return parts_.model.group; }
    MenuBar& menus() const { return *menus_; }

    std::string title() const { return title_; }
    void setTitle(const std::string& title);
    void bringToFront();

    bool hasGroup() const { return !group().pDictionaryGroupFolder.isNil(); }
    /// Resets to the no-group state without writing anything, and refills the group pop-up.
    void resetToNoGroup();
    /// Shows a group. If its folder cannot be read, says so and leaves the window without a group.
    void ReadDictionaryFolder(const FolderItem& folder);
    void mWritePreferences_DicGroup();
    /// Clears the search field and the first tab's page, and enables the controls of a window with a group. Does
    /// nothing without a group.
    void readyForSearch();
    /// Searches a word as if it had been typed; does nothing for an empty one.
    void search(const std::string& word);

  public slots:
    void TabBackNext_Action(int direction);
    void TabTopTail_Action(int direction);
    void ImageBackNext_Action(int direction);
    void ImageUpDown_Action(int direction);
    void ImageHistory_Action(int direction);
    void SubwinDic_Action(int index);
    void SubwinFind_Action(int index);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void SelectDicFolPU_MouseDown() override;
    bool changeGroup(const FolderItem& folder) override;
    void groupChanged() override;

    void makeMenus();
    /// Reads a group, and shows the progress if it takes long. False if Escape, or the closing of a window, has stopped
    /// it.
    bool readGroup(const FolderItem& folder);
    void Event_Activate();
    void Event_Moved();
    void Event_Resized();
    void Event_CancelClose();
    void SeparatelyCB_Action();
    void mSetSize();
    void mWritePreferences_Window();
    void enableGroupControls(bool enabled);
    void leaveGroup();
    /// Leaves the group: the window was closed, or the group cannot be read.
    /// @param reason shown on the empty page
    void showNoGroup(const std::string& reason = {});

    const WindowServices& services_;
    /// The title as it was set; Qt's own is escaped.
    std::string title_;
    MainWindowParts parts_;
    PlacementKeeper placement_;
    MenuBar* menus_ = nullptr;
};

} // namespace velmarin
