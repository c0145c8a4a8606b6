#include "draft/GuideSlots.h"

#include "draft/LetterModel.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

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
    // Readings exclude each other: the others share what the best leaves.
    double others = 0;
    for (std::size_t i = 1; i < slot.readings.size(); ++i)
        others += slot.readings[i].confidence;
    const double left = slot.readings.empty() ? 0 : 1 - slot.readings.front().confidence;
    for (std::size_t i = 1; i < slot.readings.size() && others > left; ++i)
        slot.readings[i].confidence *= left / others;
    return slot;
}

/// Fewer words than this do not tell which letters are usual.
constexpr std::size_t kFewWords = 100;
/// A word is strange if another reading of it is likelier by its letters than this; the logarithm of the odds.
constexpr double kStrangeOdds = 2;

/// Whether two words are readings of the same letters, and not of more or fewer words.
bool sameLength(const std::string& one, const std::string& other) {
    return one.size() <= other.size() + 1 && other.size() <= one.size() + 1;
}

void findStrangeWords(std::vector<GuideSlot>& slots) {
    std::unordered_set<std::string_view> words;
    for (const GuideSlot& slot : slots)
        if (!slot.readings.empty())
            words.insert(slot.readings.front().word);
    if (words.size() < kFewWords)
        return;
    LetterModel letters;
    for (const std::string_view word : words)
        letters.add(word);
    for (GuideSlot& slot : slots)
        for (SlotReading& reading : slot.readings)
            for (const SlotReading& other : slot.readings)
                if (other.word != reading.word && sameLength(other.word, reading.word))
                    reading.strange =
                        reading.strange.value_or(false) ||
                        letters.logOdds(other.word, reading.word, slot.readings.front().word) > kStrangeOdds;
}

/// An entry that runs on ends one page and begins the next: the same word read twice is hardly wrong.
void confirmRepeated(std::vector<GuideSlot>& slots) {
    constexpr double kDoubtOfTwice = 0.1;
    for (std::size_t i = 2; i < slots.size(); i += 2) {
        std::vector<SlotReading>&last = slots[i - 1].readings, &first = slots[i].readings;
        if (last.empty() || first.empty() || last.front().word != first.front().word)
            continue;
        const double doubt = kDoubtOfTwice * (1 - last.front().confidence) * (1 - first.front().confidence);
        last.front().confidence = first.front().confidence = 1 - doubt;
    }
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
        slots.back().entry = guess.unheaded;
        slots.push_back(slotOf(guess.last, rule, order));
    }
    confirmRepeated(slots);
    findStrangeWords(slots);
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
    return {.guideSlots = std::move(slots), .ranks = all.empty() ? 0 : all.back()->rank + 1};
}

} // namespace velmarin
