#include "search/Searcher.h"

#include "controls/ListBox.h"
#include "controls/TabPanel.h"
#include "search/DictionarySearch.h"
#include "search/HitList.h"
#include "search/PageDeck.h"

namespace velmarin {

void Searcher::mSearch(const std::string& query, int dicIndex) {
    if (!takesPart(state_.pDictionaryItem, dicIndex, deck_.TB()->Value()))
        return;
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(dicIndex);
    const SearchResult result = searchDictionary(query, *item, SearchForm::Tab);
    if (result.outcome == SearchOutcome::After)
        return;
    deck_.mSetPicture(result.line.imageName, dicIndex, true);
    deck_.showErrata(dicIndex, result.line.errata);
}

void Searcher::mSearch_ListMode(const std::string& query, int dicIndex) {
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(dicIndex);
    // Hit and row come first: row n is hit n whatever becomes of the search.
    HitItem& hit = state_.pHiteItems.emplace_back();
    hit.DictionaryNumber = dicIndex;
    hit.DictionaryName = item->name;
    defaultList_().LB()->AddRow(item->name);
    SearchResult result = searchDictionary(query, *item, SearchForm::List);
    hit.ImageName = std::move(result.line.imageName);
    hit.PageImageName = std::move(result.line.errata);
}

} // namespace velmarin
