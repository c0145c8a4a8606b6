#include "draft/DraftEntries.h"

#include "draft/SlotRun.h"
#include "making/GuideWords.h"

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

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

std::vector<BookEntry> entriesOf(const Draft& draft, const KeyRule& rule, const IndexOrder& order) {
    const RankedSlots ranked = slotsOf(draft, rule, order);
    const SlotRun run = heaviestRun(ranked);
    std::vector<GuideWords> guides;
    const DraftPage* before = nullptr;
    for (const std::size_t i : pagesInOrder(run, ranked.guideSlots)) {
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
            guides.push_back(std::move(guide));
        before = &page;
    }
    return entriesOf(guides, rule, order);
}

} // namespace velmarin
