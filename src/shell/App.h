#pragma once

#include "maintenance/Maintenance.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "search/SelectedDic.h"
#include "shell/EditCommands.h"
#include "shell/MaintenanceLink.h"
#include "shell/MenuTree.h"
#include "shell/PageImages.h"
#include "shell/PreferenceWriter.h"
#include "shell/ThisAppliModule.h"

#include <QObject>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class MainWindow;

/// The application object: holds all main windows and what they share, and handles the commands that need no window.
class App : public QObject {
    Q_OBJECT

  public:
    /// @param applicationFolder the folder that holds the program, beside which dictionaries and preferences stand
    /// @param version "major.minor"
    App(Host& host, const FolderItem& applicationFolder, std::string version);
    ~App() override;

    /// The first event of a run: opens the modules and makes the first window.
    void Event_Open();
    /// Makes a main window if a group is free for it; nothing where every group has one.
    void mMakeNewMainWin();

    /// All main windows in order of making. A closed window stays, and answers as one without a pick.
    const std::vector<std::unique_ptr<MainWindow>>& MainWinList() const { return windows_; }
    MainWindow* ActiveMainWin = nullptr;
    SelectedDicRows SelectedDic;
    ThisAppliModule module;

    Host& host() { return host_; }
    BusyState& busy() { return busy_; }
    PreferenceWriter& preferences() { return preferences_; }
    PageImages& pageImages() { return pageImages_; }

    /// The main window at this place of MainWinList; raises NilObjectException where there is none.
    MainWindow& window(int index) const;

    /// Whether no other main window is to be seen.
    bool isLastVisible(const MainWindow& window) const;
    /// Reads the rows in use from the pop-ups of all windows.
    void rebuildSelectedDic();
    /// Whether a window shows this very folder, by whatever row or link it was picked there.
    bool isShown(const FolderItem& group) const;
    /// The caption of a window's row in the menu "Mainwindow".
    void setWinItemText(int index, const std::string& text);
    const std::vector<std::string>& winItems() const { return winItems_; }

    bool handles(std::string_view command) const;
    /// Runs a command of the application's own. False for a name that it does not handle.
    bool handle(std::string_view command, int index);

    void SpecialCheckDictionaires_Action(int index);
    void SpecialChangedictionaryorder_Action(int index);
    void SpecialOpenDictionaryFolder_Action(int index);
    void SpecialInstall_Action(int index);
    void SpecialExport_Action(int index);
    void Cons_FileNew_Action(int index);
    void WinItem_Action(int index);
    void FileQuit_Action(int index);

    void mCheckDictionaries();
    /// Hooks for keys of the page; empty, since the search field has the keyboard and no key reaches the page.
    void mKeyDownSmartCanvasWindow(std::string_view key);
    void mKeyDownSubSmartCanvasWindow(std::string_view key);
    /// Closes all windows, which write their preferences, and ends the run.
    void quit();

  private:
    void showVersion(MainWindow& window) const;

    Host& host_;
    FolderItem applicationFolder_;
    std::string version_;
    BusyState busy_;
    PreferenceWriter preferences_;
    EditCommands editCommands_;
    PageImages pageImages_;
    MaintenanceLink maintenanceLink_;
    Maintenance maintenance_;
    std::vector<std::unique_ptr<MainWindow>> windows_;
    std::vector<std::string> winItems_{std::string(kWinItemWithoutGroup)};
};

} // namespace velmarin
