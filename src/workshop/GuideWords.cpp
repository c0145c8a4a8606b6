#include "workshop/GuideWords.h"

#include "workshop/SlotRun.h"

#include <algorithm>

namespace velmarin {

namespace {

/// Turns guide words into entries, page by page.
class EntryList {
  public:
    EntryList(const KeyRule& rule, const IndexOrder& order) : rule_(rule), order_(order) {}

    void add(const GuideWords& guide) {
        const std::string first = wordOf(guide.first);
        const std::string last = wordOf(guide.last);
        const bool missing = first.empty() && (guide.doubtful || !last.empty());
        const bool beginsAfter = !lastBefore_.empty() && (missing || (guide.doubtful && !doubtfulBefore_));
        const bool continues = !first.empty() && first == wordBefore_;
        if (beginsAfter)
            entries_.push_back({.headword = lastBefore_, .page = guide.page, .after = true, .errata = guide.errata});
        else if (!first.empty() && !(continues && last == first))
            entries_.push_back(
                {.headword = guide.first, .page = guide.page, .after = continues, .errata = guide.errata});
        entries_.insert(entries_.end(), guide.between.begin(), guide.between.end());
        if (!last.empty() && last != first)
            entries_.push_back({.headword = guide.last, .page = guide.page});
        if (!first.empty() || !last.empty())
            wordBefore_ = last.empty() ? first : last;
        if (!first.empty() || !last.empty() || guide.doubtful) {
            lastBefore_ = guide.last;
            doubtfulBefore_ = guide.doubtful;
        }
    }

    std::vector<BookEntry> take() { return std::move(entries_); }

  private:
    std::string wordOf(const std::string& headword) const { return indexSearchWord(rule_.keyOf(headword), order_); }

    const KeyRule& rule_;
    const IndexOrder& order_;
    std::vector<BookEntry> entries_ = {};
    std::string wordBefore_ = {}; ///< the search word of the last headword that is known of the page before
    std::string lastBefore_ = {}; ///< the last guide word of the page before
    bool doubtfulBefore_ = false; ///< it may be wrong
};

RankedSlots slotsOf(const Draft& draft, const KeyRule& rule, const IndexOrder& order) {
    std::vector<PageGuess> guesses;
    std::vector<const DraftPage*> set;
    for (const DraftPage& page : draft.pages) {
        const double confidence = page.state == PageState::Doubtful ? page.confidence / 200.0 : 1;
        guesses.push_back({.page = page.page, .first = {{page.first, confidence}}, .last = {{page.last, confidence}}});
        set.push_back(page.state == PageState::Set ? &page : nullptr);
    }
    return rankedSlots(guideSlotsOf(guesses, rule, order), set, rule, order);
}

/// The pages in the order of the alphabet: those that are moved where they belong.
std::vector<std::size_t> pagesInOrder(const SlotRun& run, const std::vector<GuideSlot>& slots) {
    const auto ranksOf = [&](std::size_t page) {
        std::vector<std::size_t> ranks;
        for (const std::size_t slot : {2 * page, 2 * page + 1})
            if (!slots[slot].readings.empty() && (run.taken[slot] || run.moved[page]))
                ranks.push_back(slots[slot].readings.front().rank);
        return ranks;
    };
    std::vector<std::size_t> pages;
    for (std::size_t i = 0; i < run.moved.size(); ++i)
        if (!run.moved[i])
            pages.push_back(i);
    for (std::size_t i = 0; i < run.moved.size(); ++i) {
        if (!run.moved[i])
            continue;
        const std::size_t own = ranksOf(i).front();
        const auto after = std::find_if(pages.begin(), pages.end(), [&](std::size_t page) {
            const auto ranks = ranksOf(page);
            return !ranks.empty() && ranks.back() > own;
        });
        pages.insert(after, i);
    }
    return pages;
}

} // namespace

std::vector<BookEntry> entriesOf(const std::vector<GuideWords>& guides, const KeyRule& rule, const IndexOrder& order) {
    EntryList entries(rule, order);
    for (const GuideWords& guide : guides)
        entries.add(guide);
    return entries.take();
}

std::vector<BookEntry> entriesOf(const Draft& draft, const KeyRule& rule, const IndexOrder& order) {
    const RankedSlots ranked = slotsOf(draft, rule, order);
    const SlotRun run = heaviestRun(ranked);
    EntryList entries(rule, order);
    const DraftPage* before = nullptr;
    for (const std::size_t i : pagesInOrder(run, ranked.slots)) {
        const DraftPage& page = draft.pages[i];
        GuideWords guide{.page = i, .doubtful = page.state == PageState::Doubtful};
        const auto counts = [&](std::size_t slot) { return !guide.doubtful || run.moved[i] || run.taken[slot]; };
        if (counts(2 * i))
            guide.first = page.first;
        if (counts(2 * i + 1))
            guide.last = page.last;
        const bool again =
            before != nullptr && page.first != page.last && page.first == before->first && page.last == before->last;
        if (!again)
            entries.add(guide);
        before = &page;
    }
    return entries.take();
}

} // namespace velmarin
