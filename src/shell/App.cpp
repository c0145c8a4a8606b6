#include "shell/App.h"

#include "platform/EventLoopPost.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"
#include "store/UserPreferencesFolder.h"
#include "text/Grep.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/WordDelimiters.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

struct AppCommand {
    std::string_view name;
    void (App::*run)(int index);
};

constexpr std::array<AppCommand, 8> kCommands{{
    {"SpecialCheckDictionaires", &App::SpecialCheckDictionaires_Action},
    {"SpecialChangedictionaryorder", &App::SpecialChangedictionaryorder_Action},
    {"SpecialOpenDictionaryFolder", &App::SpecialOpenDictionaryFolder_Action},
    {"SpecialInstall", &App::SpecialInstall_Action},
    {"SpecialExport", &App::SpecialExport_Action},
    {"Cons_FileNew", &App::Cons_FileNew_Action},
    {"WinItem", &App::WinItem_Action},
    {"FileQuit", &App::FileQuit_Action},
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

bool App::isShown(const FolderItem& group) const {
    return std::any_of(windows_.begin(), windows_.end(), [&group](const auto& window) {
        return window->hasGroup() && window->group().pDictionaryGroupFolder.isSameItem(group);
    });
}

void App::setWinItemText(int index, const std::string& text) {
    winItems_.at(static_cast<std::size_t>(index)) = text;
    for (const auto& window : windows_)
        window->menus().setWindowItems(winItems_);
}

bool App::handles(std::string_view command) const {
    if (EditCommands::handles(command))
        return true;
    for (const AppCommand& each : kCommands)
        if (each.name == command)
            return true;
    return false;
}

bool App::handle(std::string_view command, int index) {
    if (EditCommands::handles(command)) {
        editCommands_.run(command);
        return true;
    }
    for (const AppCommand& each : kCommands)
        if (each.name == command) {
            (this->*each.run)(index);
            return true;
        }
    return false;
}

void App::SpecialCheckDictionaires_Action(int) {
    mCheckDictionaries();
}

void App::mCheckDictionaries() {
    // The command is there and does nothing: checking a dictionary is the command line's work.
}

void App::mKeyDownSmartCanvasWindow(std::string_view) {}

void App::mKeyDownSubSmartCanvasWindow(std::string_view) {}

void App::SpecialChangedictionaryorder_Action(int) {
    if (ActiveMainWin != nullptr && ActiveMainWin->groupPicker().pick().row >= 0)
        maintenance_.changeDictionariesOrder(ActiveMainWin->pMyIndex, ActiveMainWin->groupPicker().pickedFolder());
}

void App::SpecialOpenDictionaryFolder_Action(int) {
    if (!host_.Launch(module.pDictionaryFolder.path()))
        host_.MsgBox("The folder could not be opened: " + module.pDictionaryFolder.path().string());
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
    window(index).bringToFront();
}

void App::FileQuit_Action(int) {
    quit();
}

void App::quit() {
    busy_.whenStopped([this] {
        pageImages_.close();
        for (const auto& window : windows_)
            window->close();
        QApplication::quit();
    });
}

} // namespace velmarin
