#include "search/PageTab.h"

#include "search/PageCursor.h"

#include <algorithm>
#include <utility>

namespace velmarin {

void PageTab::reset() {
    *this = PageTab(*display_);
    display_->showEmptyTab();
}

PageOutcome PageTab::load(const FolderItem& file, int fit) {
    PageOutcome outcome = display_->showPage(file, fit);
    hasPage_ = outcome.anyPage;
    return outcome;
}

void PageTab::setPageName(const std::string& name) {
    pageName_ = name;
    display_->showPageName(name);
}

void PageTab::dropPage() {
    hasPage_ = false;
    display_->dropPage();
}

void PageTab::describe(const std::string& dictionary, const std::string& page, const std::string& problem) {
    display_->describePage(dictionary, page, problem);
}

std::string PageTab::titleOf(const DictionaryItem& item, const std::string& name) const {
    if (!item.ImageDictionary.has(name))
        return name;
    const auto row = static_cast<std::size_t>(item.ImageDictionary.value(name));
    const std::string caption = row < captions_.size() ? captions_[row] : std::string();
    return caption.empty() || caption == name ? name : caption + ", " + name;
}

void PageTab::setJumpRows(std::vector<std::string> captions) {
    captions_ = std::move(captions);
    jumpValue_ = 0;
    display_->showJumpRows(captions_);
}

void PageTab::setJumpValue(int row) {
    if (captions_.empty())
        return;
    jumpValue_ = std::clamp(row, 0, static_cast<int>(captions_.size()) - 1);
    display_->showJumpValue(jumpValue_);
}

void PageTab::remember(DictionaryItem& item, const std::string& name) {
    display_->addHistoryRow(name);
    item.ImageHistory.push_back(name);
    setHistoryValue(static_cast<int>(item.ImageHistory.size()) - 1 + kHistoryRowsBeforePages);
}

void PageTab::setHistoryValue(int menuValue) {
    historyValue_ = menuValue;
    display_->showHistoryValue(menuValue);
}

void PageTab::forgetHistory(DictionaryItem& item) {
    historyValue_ = 0;
    display_->clearHistory();
    item.ImageHistory.clear();
}

void PageTab::setErrata(std::vector<std::string> names) {
    errata_ = std::move(names);
    display_->showErrata(errata_);
}

std::string PageTab::erratum(int row) const {
    return row >= 0 && row < static_cast<int>(errata_.size()) ? errata_[static_cast<std::size_t>(row)] : std::string();
}

void PageTab::setFitValue(int fit) {
    fit_ = fit;
    display_->showFitValue(fit);
}

void PageTab::chooseFit(int fit) {
    fit_ = fit;
    display_->fitPage(fit);
    display_->refreshPage();
}

} // namespace velmarin
