#include "search/SearchModel.h"

#include "platform/Busy.h"
#include "platform/Host.h"
#include "search/DictionarySearch.h"
#include "search/HitModel.h"
#include "search/PageTabs.h"
#include "search/QueryRoute.h"

#include <utility>

namespace velmarin {

namespace {

/// Shows the progress bar while a search runs, however that ends.
class ShownProgress {
  public:
    ShownProgress(SearchDisplay& display, int maximum) : display_(display) { display_.showProgress(maximum); }
    ~ShownProgress() { display_.hideProgress(); }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

  private:
    SearchDisplay& display_;
};

constexpr int kListProgressStep = 10;

} // namespace

void SearchModel::setSeparately(bool separately) {
    separately_ = separately;
    display_->showSeparately(separately);
}

void SearchModel::search(const std::string& query) {
    const Busy guard(busy_);
    switch (routeQuery(group_.pListMode, separately_, [this] { return host_.AsyncShiftKey(); })) {
    case QueryRoute::List:
        searchAllIntoList(query);
        break;
    case QueryRoute::FrontTab:
        if (group_.hasDictionary(tabs_.front()))
            mSearch(query, tabs_.front());
        break;
    case QueryRoute::AllTabs:
        searchAllTabs(query);
        break;
    case QueryRoute::Unexpected:
        host_.MsgBox("OKBT unexpected error at ACTION.");
        break;
    }
}

void SearchModel::searchAllIntoList(const std::string& query) {
    hits_.clearHits();
    HitModel& list = defaultHits_();
    list.clearRows();
    const ShownProgress progress(*display_, group_.dictionaryCount() - 1);
    for (int i = 0; i < group_.dictionaryCount(); ++i) {
        if (i % kListProgressStep == 0)
            display_->setProgress(i);
        mSearch_ListMode(query, i);
        host_.Yield();
    }
    list.chooseFirstRow();
}

void SearchModel::searchAllTabs(const std::string& query) {
    const ShownProgress progress(*display_, group_.dictionaryCount() - 1);
    for (int i = 0; i < group_.dictionaryCount(); ++i) {
        display_->setProgress(i);
        mSearch(query, i);
        host_.Yield();
    }
}

void SearchModel::searchAll(const std::string& query) {
    for (int i = 0; i < group_.dictionaryCount(); ++i) {
        // In list mode only the first has a tab to show its page in.
        if (tabs_.hasTab(i))
            mSearch(query, i);
        host_.Yield();
    }
}

void SearchModel::mSearch(const std::string& query, int dicIndex) {
    if (!takesPart(group_.pDictionaryItem, dicIndex, tabs_.front()))
        return;
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(dicIndex);
    SearchResult result = searchDictionary(query, *item, SearchForm::Tab);
    if (result.outcome == SearchOutcome::After)
        return;
    tabs_.mSetPicture(result.line.imageName, dicIndex, true);
    tabs_.tab(dicIndex).setErrata(std::move(result.line.errata));
}

void SearchModel::mSearch_ListMode(const std::string& query, int dicIndex) {
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(dicIndex);
    // Hit and row come before the search, which may fail: row n is hit n.
    HitItem& hit = hits_.addHit(dicIndex);
    defaultHits_().addRow(item->name);
    SearchResult result = searchDictionary(query, *item, SearchForm::List);
    hit.ImageName = std::move(result.line.imageName);
    hit.PageImageName = std::move(result.line.errata);
}

} // namespace velmarin
