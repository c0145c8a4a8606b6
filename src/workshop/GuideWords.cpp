#include "workshop/GuideWords.h"

namespace velmarin {

std::vector<BookEntry> entriesOf(const std::vector<GuideWords>& guides, const KeyRule& rule, const IndexOrder& order) {
    const auto wordOf = [&](const std::string& headword) { return indexSearchWord(rule.keyOf(headword), order); };
    std::vector<BookEntry> entries;
    std::string wordBefore; // the last that is known of the page before
    for (const GuideWords& guide : guides) {
        const std::string first = wordOf(guide.first);
        const std::string last = wordOf(guide.last);
        const bool continues = !first.empty() && first == wordBefore;
        const bool onlyContinues = continues && last == first;
        if (!first.empty() && !onlyContinues)
            entries.push_back(
                {.headword = guide.first, .page = guide.page, .after = continues, .errata = guide.errata});
        entries.insert(entries.end(), guide.between.begin(), guide.between.end());
        if (!last.empty() && last != first)
            entries.push_back({.headword = guide.last, .page = guide.page});
        if (!first.empty() || !last.empty())
            wordBefore = last.empty() ? first : last;
    }
    return entries;
}

std::vector<BookEntry> entriesOf(const Draft& draft, const KeyRule& rule, const IndexOrder& order) {
    std::vector<GuideWords> guides;
    for (std::size_t i = 0; i < draft.pages.size(); ++i)
        guides.push_back({.page = i, .first = draft.pages[i].first, .last = draft.pages[i].last});
    return entriesOf(guides, rule, order);
}

} // namespace velmarin
