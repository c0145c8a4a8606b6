#pragma once

#include "maintenance/Maintenance.h"
#include "platform/Busy.h"
#include "shell/EditCommands.h"
#include "shell/MaintenanceAccess.h"
#include "shell/PageImages.h"
#include "shell/PreferenceWriter.h"
#include "shell/ThisAppliModule.h"
#include "shell/WindowList.h"
#include "shell/WindowServices.h"

#include <QObject>

#include <string>
#include <string_view>

namespace velmarin {

class Host;
class MainWindow;

/// The application object: makes the parts of the program and connects them, and handles the commands that need no
/// window.
class App : public QObject {
    Q_OBJECT

  public:
    /// @param applicationFolder the folder that holds the program, with the dictionaries and preferences beside it
    /// @param version "major.minor"
    App(Host& host, const FolderItem& applicationFolder, std::string version);
    ~App() override;

    /// The first event of a run: opens the modules and makes the first window.
    void Event_Open();
    /// Makes a main window if a group is free for it.
    void mMakeNewMainWin();
    /// Closes all windows, which write their preferences, and ends the run.
    void quit();

    WindowList& windows() { return windows_; }
    ThisAppliModule& module() { return module_; }
    PageImages& pageImages() { return pageImages_; }
    /// All commands that need no window.
    const Commands& commands() const { return services_.commands; }

    void mCheckDictionaries();
    /// Hooks for keys of the page; empty, because the search field has the keyboard and no key reaches the page.
    void mKeyDownSmartCanvasWindow(std::string_view key);
    void mKeyDownSubSmartCanvasWindow(std::string_view key);

  public slots:
    void SpecialCheckDictionaires_Action(int index);
    void SpecialChangedictionaryorder_Action(int index);
    void SpecialOpenDictionaryFolder_Action(int index);
    void SpecialInstall_Action(int index);
    void SpecialExport_Action(int index);
    void Cons_FileNew_Action(int index);
    /// Brings a window to the front. Does nothing if there is none of that number.
    void WinItem_Action(int index);
    void FileQuit_Action(int index);

  private:
    void showVersion(MainWindow& window) const;

    Host& host_;
    FolderItem applicationFolder_;
    std::string version_;
    ThisAppliModule module_;
    BusyState busy_;
    EditCommands editCommands_;
    PreferenceWriter preferences_;
    PageImages pageImages_;
    WindowServices services_;
    MaintenanceAccess maintenanceAccess_;
    Maintenance maintenance_;
    WindowList windows_;
};

} // namespace velmarin
