#pragma once

#include "search/WindowModel.h"
#include "shell/MenuBar.h"
#include "shell/PlacementKeeper.h"

#include <QLabel>
#include <QMainWindow>

#include <memory>
#include <string>
#include <string_view>

namespace velmarin {

class AboutPanel;
class AnchoredLayout;
class App;
class GroupPicker;
class HitList;
class MainWindowStepper;
class NoGroupNotice;
class PageDeck;
class QueryBar;
class SideLink;

/// A main window: the front of its parts. It owns them, tells them of the window's events, and hands commands on.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit MainWindow(App& app);
    ~MainWindow() override;

    /// True for the first window only: only that one saves its placement.
    bool pDefaultMainWindow = false;
    /// Its position in MainWinList, and the index of its row in the menu "Mainwindow".
    int pMyIndex = 0;

    GroupPicker& groupPicker() const { return *groupPicker_; }
    QueryBar& queryBar() const { return *queryBar_; }
    SideLink& sideLink() const { return *sideLink_; }
    NoGroupNotice& notice() const { return *notice_; }
    MenuBar& menus() const { return *menus_; }
    WindowModel& model() { return model_; }
    const GroupModel& group() const { return model_.group; }

    std::string title() const;
    void setTitle(const std::string& title);
    void appendToAbout(const std::string& text);
    void bringToFront();

    bool hasGroup() const { return !model_.group.pDictionaryGroupFolder.isNil(); }
    /// What a pick of a free group does: saves the group being left and reads the new one. False if that fails.
    bool changeGroup(const FolderItem& group);
    /// Resets to the no-group state without writing anything, and refills the group pop-up.
    void resetToNoGroup();
    /// Shows a group. If its folder cannot be read, says so and leaves the window without a group.
    void ReadDictionaryFolder(const FolderItem& group);
    void mWritePreferences_DicGroup();
    /// An empty search field, the controls of a window with a group enabled, and no page in the first tab. Nothing
    /// happens without a group.
    void readyForSearch();
    /// Searches a word as if it had been typed; nothing for an empty one.
    void search(const std::string& word);
    /// A press on the group pop-up closes the side window.
    void SelectDicFolPU_MouseDown();

    /// Direction 1 is a page forward, any other a page back.
    void mNextBack(int direction, int tab);
    /// 0 is a screenful up, 1 one down.
    void mUpDown(int direction, int tab);

    /// Whether the window, not the application, carries out a command of the menu bar.
    bool handles(std::string_view command) const;
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
    void makeParts();
    void Event_Activate();
    void Event_Moved();
    void Event_Resized();
    void Event_CancelClose();
    void SeparatelyCB_Action();
    void mSetSize();
    void mWritePreferences_Window();
    void enableGroupControls(bool enabled);
    void leaveGroup();
    /// Takes the group away: what a closed window comes back as, and what a group that cannot be read leaves.
    /// @param reason shown on the empty page
    void showNoGroup(const std::string& reason = {});
    void route(std::string_view command, int index);
    bool handle(std::string_view command, int index);

    App& app_;
    /// The title as it was set: Qt's own holds marks.
    std::string title_;
    WindowModel model_;
    PlacementKeeper placement_;
    AnchoredLayout* layout_;
    MenuBar* menus_;
    std::shared_ptr<MainWindowStepper> stepper_;
    PageDeck* deck_ = nullptr;
    HitList* hitList_ = nullptr;
    QueryBar* queryBar_ = nullptr;
    GroupPicker* groupPicker_ = nullptr;
    SideLink* sideLink_ = nullptr;
    AboutPanel* about_ = nullptr;
    std::unique_ptr<NoGroupNotice> notice_;
};

} // namespace velmarin
