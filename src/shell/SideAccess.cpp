#include "shell/SideAccess.h"

#include "controls/ProgressBar.h"
#include "platform/QtText.h"
#include "search/GroupModel.h"
#include "search/QueryBar.h"
#include "search/SearchModel.h"
#include "shell/PreferenceWriter.h"

#include <QMainWindow>

namespace velmarin {

QMainWindow* SideAccess::window() {
    return &window_;
}

FolderItem SideAccess::pDictionaryGroupFolder() {
    return group_.pDictionaryGroupFolder;
}

void SideAccess::noteWritten(const std::string& path, const Result& result) {
    preferences_.note(path, result);
}

void SideAccess::setSearchText(std::string_view text) {
    queryBar_.SearchEF()->setText(toQ(text));
    queryBar_.SearchEF()->setCursorPosition(0); // the beginning of a long message matters most
}

void SideAccess::focusSearch(bool selectAll) {
    window_.activateWindow();
    queryBar_.SearchEF()->setFocus();
    if (selectAll)
        queryBar_.SearchEF()->selectAll();
}

void SideAccess::setOKBTDefault(bool isDefault) {
    queryBar_.OKBT()->setDefault(isDefault);
}

void SideAccess::searchAll(const std::string& word) {
    search_.searchAll(word);
}

void SideAccess::showProgress() {
    queryBar_.PB()->show();
}

void SideAccess::setProgressMaximum(int maximum) {
    queryBar_.PB()->setMaximum(maximum);
}

void SideAccess::setProgressValue(int value) {
    queryBar_.PB()->setValue(value);
}

void SideAccess::showProgressFull() {
    queryBar_.PB()->showFull();
}

void SideAccess::hideProgress() {
    queryBar_.PB()->hide();
}

} // namespace velmarin
