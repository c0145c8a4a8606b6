#include "shell/MaintenanceLink.h"

#include "shell/App.h"
#include "shell/ApplicationShortcuts.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"

namespace velmarin {

FolderItem MaintenanceLink::pDictionaryFolder() const {
    return app_.module.pDictionaryFolder;
}

QWidget* MaintenanceLink::frontWindow() const {
    MainWindow* window = app_.ActiveMainWin;
    return window != nullptr && window->isVisible() ? window : nullptr;
}

void MaintenanceLink::prepare(QWidget* window) {
    addApplicationShortcuts(app_, window);
}

int MaintenanceLink::windowCount() const {
    return static_cast<int>(app_.MainWinList().size());
}

void MaintenanceLink::resetToNoGroup(int window) {
    app_.window(window).resetToNoGroup();
    // The group that the window stood on can be picked again, there or elsewhere.
    app_.rebuildSelectedDic();
}

std::vector<std::string> MaintenanceLink::dictionaryNames(int window) const {
    std::vector<std::string> names;
    for (const auto& item : app_.window(window).group().pDictionaryItem)
        names.push_back(item->name);
    return names;
}

std::string MaintenanceLink::pDicGroupName(int window) const {
    return app_.window(window).group().pDicGroupName;
}

void MaintenanceLink::setNewDicPref(std::vector<std::string> lines) {
    app_.module.pNewDicPref = std::move(lines);
}

bool MaintenanceLink::hasGroup(int window) const {
    return !app_.window(window).group().pDictionaryGroupFolder.isNil();
}

void MaintenanceLink::writeOrderAndPick(int window, const FolderItem& group) {
    GroupModel left;
    left.pDictionaryGroupFolder = group;
    app_.preferences().forgetFailures();
    app_.preferences().writeGroup(left, false, app_.module);
    if (app_.window(window).isVisible())
        app_.window(window).groupPicker().pickNamed(group.Name());
}

void MaintenanceLink::closePageImageWindow() {
    app_.pageImages().close();
}

void MaintenanceLink::mWritePreferences_DicGroup(int window) {
    // A save by hand that fails is told of, whatever was told before.
    app_.preferences().forgetFailures();
    app_.window(window).mWritePreferences_DicGroup();
}

void MaintenanceLink::ReadDictionaryFolder(int window, const FolderItem& group) {
    app_.window(window).ReadDictionaryFolder(group);
}

void MaintenanceLink::readyForSearch(int window) {
    app_.window(window).readyForSearch();
}

} // namespace velmarin
