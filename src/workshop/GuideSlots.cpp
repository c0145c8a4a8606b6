#include "workshop/GuideSlots.h"

#include <algorithm>

namespace velmarin {

namespace {

SlotReading readingOf(const std::string& text, double confidence, const KeyRule& rule, const IndexOrder& order) {
    return {.text = text, .word = indexSearchWord(rule.keyOf(text), order), .confidence = confidence};
}

GuideSlot slotOf(const std::vector<Guess>& guesses, const KeyRule& rule, const IndexOrder& order) {
    GuideSlot slot;
    for (const Guess& guess : guesses)
        if (!guess.text.empty())
            slot.readings.push_back(readingOf(guess.text, std::clamp(guess.confidence, 0.0, 1.0), rule, order));
    return slot;
}

GuideSlot slotSetTo(const std::string& text, const KeyRule& rule, const IndexOrder& order) {
    GuideSlot slot{.set = true};
    if (!text.empty())
        slot.readings.push_back(readingOf(text, 1, rule, order));
    return slot;
}

} // namespace

std::vector<GuideSlot> guideSlotsOf(const std::vector<PageGuess>& guesses, const KeyRule& rule,
                                    const IndexOrder& order) {
    std::vector<GuideSlot> slots;
    slots.reserve(guesses.size() * 2);
    for (const PageGuess& guess : guesses) {
        slots.push_back(slotOf(guess.first, rule, order));
        slots.push_back(slotOf(guess.last, rule, order));
    }
    return slots;
}

RankedSlots rankedSlots(std::vector<GuideSlot> slots, const std::vector<const DraftPage*>& pages, const KeyRule& rule,
                        const IndexOrder& order) {
    for (std::size_t i = 0; i < pages.size(); ++i)
        if (pages[i] != nullptr) {
            slots[2 * i] = slotSetTo(pages[i]->first, rule, order);
            slots[2 * i + 1] = slotSetTo(pages[i]->last, rule, order);
        }
    std::vector<SlotReading*> all;
    for (GuideSlot& slot : slots)
        for (SlotReading& reading : slot.readings)
            all.push_back(&reading);
    std::sort(all.begin(), all.end(),
              [](const SlotReading* one, const SlotReading* other) { return one->word < other->word; });
    for (std::size_t i = 0; i < all.size(); ++i) {
        const bool same = i > 0 && all[i]->word == all[i - 1]->word;
        all[i]->rank = i == 0 ? 0 : all[i - 1]->rank + (same ? 0 : 1);
    }
    return {.slots = std::move(slots), .ranks = all.empty() ? 0 : all.back()->rank + 1};
}

} // namespace velmarin
