#include "shell/MaintenanceAccess.h"

#include "shell/ApplicationShortcuts.h"
#include "shell/MainWindow.h"
#include "shell/PageImages.h"
#include "shell/PreferenceWriter.h"
#include "shell/ThisAppliModule.h"
#include "shell/WindowList.h"

namespace velmarin {

FolderItem MaintenanceAccess::pDictionaryFolder() const {
    return module_.pDictionaryFolder;
}

QWidget* MaintenanceAccess::frontWindow() const {
    MainWindow* window = windows_.ActiveMainWin;
    return window != nullptr && window->isVisible() ? window : nullptr;
}

void MaintenanceAccess::prepare(QWidget* window) {
    addApplicationShortcuts(commands_, window);
}

int MaintenanceAccess::windowCount() const {
    return windows_.count();
}

void MaintenanceAccess::resetToNoGroup(int window) {
    windows_.window(window).resetToNoGroup();
    // The window's group can be picked again, there or elsewhere.
    windows_.rebuildSelectedDic();
}

std::vector<std::string> MaintenanceAccess::dictionaryNames(int window) const {
    std::vector<std::string> names;
    for (const auto& item : windows_.window(window).group().pDictionaryItem)
        names.push_back(item->name);
    return names;
}

std::string MaintenanceAccess::pDicGroupName(int window) const {
    return windows_.window(window).group().pDicGroupName;
}

void MaintenanceAccess::setNewDicPref(std::vector<std::string> lines) {
    module_.pNewDicPref = std::move(lines);
}

bool MaintenanceAccess::hasGroup(int window) const {
    return windows_.window(window).hasGroup();
}

void MaintenanceAccess::writeOrderAndPick(int window, const FolderItem& group) {
    GroupModel left;
    left.pDictionaryGroupFolder = group;
    preferences_.forgetFailures();
    preferences_.writeGroup(left, false);
    if (windows_.window(window).isVisible())
        windows_.window(window).parts().groupPicker->pickNamed(group.Name());
}

void MaintenanceAccess::closePageImageWindow() {
    pageImages_.close();
}

void MaintenanceAccess::mWritePreferences_DicGroup(int window) {
    // The user asked for this save, so its failure is reported even if it was before.
    preferences_.forgetFailures();
    windows_.window(window).mWritePreferences_DicGroup();
}

void MaintenanceAccess::ReadDictionaryFolder(int window, const FolderItem& group) {
    windows_.window(window).ReadDictionaryFolder(group);
}

void MaintenanceAccess::readyForSearch(int window) {
    windows_.window(window).readyForSearch();
}

} // namespace velmarin
