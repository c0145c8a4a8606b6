#include "shell/SideAccess.h"

#include "controls/ProgressBar.h"
#include "controls/QtText.h"
#include "search/PageDeck.h"
#include "search/QueryBar.h"
#include "search/Searcher.h"
#include "shell/PreferenceWriter.h"
#include "shell/WindowServices.h"

#include <QMainWindow>

namespace velmarin {

SideAccess::SideAccess(QMainWindow& window, const WindowServices& services, const WindowState& state,
                       QueryBar& queryBar, Searcher& searcher, const PageDeck& deck)
    : window_(window), host_(services.host), preferences_(services.preferences), state_(state), queryBar_(queryBar),
      searcher_(searcher), deck_(deck) {}

QMainWindow* SideAccess::window() {
    return &window_;
}

FolderItem SideAccess::pDictionaryGroupFolder() {
    return state_.pDictionaryGroupFolder;
}

void SideAccess::noteWritten(const std::string& path, const WriteResult& result) {
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
    for (int i = 0; i < static_cast<int>(state_.pDictionaryItem.size()); ++i) {
        // In list mode only the first has a tab to show its page in.
        if (i < deck_.setCount())
            searcher_.mSearch(word, i);
        host_.Yield();
    }
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
