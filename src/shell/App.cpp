#include "shell/App.h"

#include "platform/EventLoopPost.h"
#include "platform/Host.h"
#include "shell/AboutPanel.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"
#include "store/UserPreferencesFolder.h"
#include "text/Grep.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/WordDelimiters.h"

#include <QApplication>

namespace velmarin {

App::App(Host& host, const FolderItem& applicationFolder, std::string version)
    : host_(host), applicationFolder_(applicationFolder), version_(std::move(version)), busy_(eventLoopPost()),
      preferences_([&host](std::string_view text) { host.MsgBox(text); }, module_.pThis_PreferencesFolder,
                   module_.pNewDicPref),
      pageImages_(host, preferences_, module_.pThis_PreferencesFolder, {this}),
      services_{.host = host,
                .busy = busy_,
                .preferences = preferences_,
                .pageImages = pageImages_,
                .windows = windows_,
                .commands = {this, &editCommands_},
                .pDictionaryFolder = module_.pDictionaryFolder,
                .pThis_PreferencesFolder = module_.pThis_PreferencesFolder,
                .pSelectedDicTag = module_.pSelectedDicTag},
      maintenanceAccess_(windows_, module_, preferences_, pageImages_, {this}),
      maintenance_(maintenanceAccess_, host, busy_) {
    setMessageHandler([&host](std::string_view text) { host.MsgBox(text); });
}

App::~App() {
    setMessageHandler({});
}

void App::Event_Open() {
    try {
        mStrMod_OpenThisModule();
        mFiMod_OpenThisModule();
        mDDmod_OpenThisModule();
        module_.mThisMod_OpenThisModule(applicationFolder_);
        module_.pDictionaryFolder = applicationFolder_.Child("DictionaryFolder");
        mMakeNewMainWin();
    } catch (const NilObjectException&) {
        host_.MsgBox("Error: app open 0");
    }
}

void App::mMakeNewMainWin() {
    const bool isFirst = windows_.count() == 0;
    if (!isFirst && windows_.count() >= windows_.window(0).parts().groupPicker->rowCount()) {
        showVersion(windows_.window(0));
        return;
    }
    auto made = std::make_unique<MainWindow>(services_);
    made->parts().groupPicker->mMakeSelectDicPU();
    // In the list before the pick, so that a group that is picked at once counts as in use.
    MainWindow& window = windows_.add(std::move(made));
    window.parts().groupPicker->pickOnlyRow();
    window.pDefaultMainWindow = isFirst;
    showVersion(window);
    window.show();
}

void App::showVersion(MainWindow& window) const {
    window.parts().about->append("\n\n\nThis Velmarin is at the version " + version_);
    window.setTitle(window.title() + " version " + version_);
}

void App::SpecialCheckDictionaires_Action(int) {
    mCheckDictionaries();
}

void App::mCheckDictionaries() {
    // Does nothing, but counts as handled: dictionaries are checked on the command line.
}

void App::mKeyDownSmartCanvasWindow(std::string_view) {}

void App::mKeyDownSubSmartCanvasWindow(std::string_view) {}

void App::SpecialChangedictionaryorder_Action(int) {
    const MainWindow* window = windows_.ActiveMainWin;
    if (window != nullptr && window->parts().groupPicker->pick().row >= 0)
        maintenance_.changeDictionariesOrder(window->pMyIndex, window->parts().groupPicker->pickedFolder());
}

void App::SpecialOpenDictionaryFolder_Action(int) {
    if (!host_.Launch(module_.pDictionaryFolder.path()))
        host_.MsgBox("The folder could not be opened: " + module_.pDictionaryFolder.path().string());
}

void App::SpecialInstall_Action(int) {
    busy_.whenFree([this] { maintenance_.mUpDateDictionary(); });
}

void App::SpecialExport_Action(int) {
    busy_.whenFree([this] { maintenance_.mExportDic(); });
}

void App::Cons_FileNew_Action(int) {
    mMakeNewMainWin();
}

void App::WinItem_Action(int index) {
    if (index < windows_.count())
        windows_.window(index).bringToFront();
}

void App::FileQuit_Action(int) {
    quit();
}

void App::quit() {
    host_.endSoon();
    // Saved first: the process may end before the work that is under way.
    for (const auto& window : windows_.MainWinList())
        window->mWritePreferences_DicGroup();
    busy_.whenStopped([this] {
        pageImages_.close();
        for (const auto& window : windows_.MainWinList())
            window->close();
        QApplication::quit();
    });
}

} // namespace velmarin
