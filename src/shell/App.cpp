#include "shell/App.h"

#include "platform/EventLoopPost.h"
#include "shell/EditCommands.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"
#include "store/Fi_Module.h"
#include "text/DicDataModule.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/StringModule.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

struct AppCommand {
    std::string_view name;
    void (*run)(App&, int index);
};

void mCheckDictionaries(App& /*app*/, int /*index*/) {
    // The command is there and does nothing: checking a dictionary is the command line's work.
}

constexpr std::array<AppCommand, 8> kCommands{{
    {"SpecialCheckDictionaires", mCheckDictionaries},
    {"SpecialChangedictionaryorder",
     [](App& app, int) {
         if (app.ActiveMainWin != nullptr && app.ActiveMainWin->groupPicker().pick().row >= 0)
             app.maintenance().changeDictionariesOrder(app.ActiveMainWin->pMyIndex,
                                                       app.ActiveMainWin->groupPicker().pickedFolder());
     }},
    {"SpecialInstall", [](App& app, int) { app.busy().whenFree([&app] { app.maintenance().mUpDateDictionary(); }); }},
    {"SpecialExport", [](App& app, int) { app.maintenance().mExportDic(); }},
    {"SpecialOpenDictionaryFolder",
     [](App& app, int) {
         if (!app.host().Launch(app.module.pDictionaryFolder.path()))
             app.host().MsgBox("The folder could not be opened: " + app.module.pDictionaryFolder.path().string());
     }},
    {"Cons_FileNew", [](App& app, int) { app.mMakeNewMainWin(); }},
    {"WinItem", [](App& app, int index) { app.window(index).bringToFront(); }},
    {"FileQuit", [](App& app, int) { app.quit(); }},
}};

} // namespace

App::App(Host& host, const FolderItem& applicationFolder, std::string version)
    : host_(host), applicationFolder_(applicationFolder), version_(std::move(version)), busy_(eventLoopPost()),
      preferences_([&host](std::string_view text) { host.MsgBox(text); }), pageImages_(*this), maintenanceLink_(*this),
      maintenance_(maintenanceLink_, host, busy_) {
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
        module.mThisMod_OpenThisModule(applicationFolder_);
        module.pDictionaryFolder = applicationFolder_.Child("DictionaryFolder");
        mMakeNewMainWin();
    } catch (const NilObjectException&) {
        host_.MsgBox("Error: app open 0");
    }
}

void App::mMakeNewMainWin() {
    if (windows_.empty()) {
        auto made = std::make_unique<MainWindow>(*this);
        made->groupPicker().mMakeSelectDicPU();
        MainWindow& window = *made;
        // In the list before the pick, so that a group that is picked at once counts as in use.
        windows_.push_back(std::move(made));
        window.groupPicker().pickOnlyRow();
        window.pDefaultMainWindow = true;
        showVersion(window);
        window.show();
        return;
    }
    if (static_cast<int>(windows_.size()) - 1 >= windows_.front()->groupPicker().rowCount() - 1) {
        showVersion(*windows_.front());
        return;
    }
    auto made = std::make_unique<MainWindow>(*this);
    MainWindow& window = *made;
    window.groupPicker().mMakeSelectDicPU();
    window.pMyIndex = static_cast<int>(windows_.size());
    windows_.push_back(std::move(made));
    winItems_.emplace_back(kWinItemWithoutGroup);
    for (const auto& each : windows_)
        each->menus().setWindowItems(winItems_);
    window.groupPicker().pickOnlyRow();
    showVersion(window);
    window.show();
}

void App::showVersion(MainWindow& window) const {
    window.appendToAbout("\n\n\nThis Velmarin is at the version " + version_);
    window.setTitle(window.title() + " version " + version_);
}

MainWindow& App::window(int index) const {
    if (index < 0 || index >= static_cast<int>(windows_.size()))
        throw NilObjectException("There is no main window number " + std::to_string(index) + ".");
    return *windows_[static_cast<std::size_t>(index)];
}

bool App::isLastVisible(const MainWindow& window) const {
    return std::none_of(windows_.begin(), windows_.end(),
                        [&window](const auto& each) { return each.get() != &window && each->isVisible(); });
}

void App::rebuildSelectedDic() {
    std::vector<WindowPick> picks;
    for (const auto& window : windows_)
        picks.push_back(window->groupPicker().pick());
    SelectedDic = rowsInUse(picks);
}

void App::setWinItemText(int index, const std::string& text) {
    winItems_.at(static_cast<std::size_t>(index)) = text;
    for (const auto& window : windows_)
        window->menus().setWindowItems(winItems_);
}

bool App::handles(std::string_view command) const {
    if (isEditCommand(command))
        return true;
    for (const AppCommand& each : kCommands)
        if (each.name == command)
            return true;
    return false;
}

bool App::handle(std::string_view command, int index) {
    if (isEditCommand(command)) {
        runEditCommand(command);
        return true;
    }
    for (const AppCommand& each : kCommands)
        if (each.name == command) {
            each.run(*this, index);
            return true;
        }
    return false;
}

void App::quit() {
    busy_.whenFree([this] {
        pageImages_.close();
        for (const auto& window : windows_)
            window->close();
        QApplication::quit();
    });
}

} // namespace velmarin
