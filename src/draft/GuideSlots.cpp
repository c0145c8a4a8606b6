#include "draft/GuideSlots.h"

#include <algorithm>
#include <functional>
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
    double sum = 0;
    for (const SlotReading& reading : slot.readings)
        sum += reading.confidence;
    // Readings exclude each other.
    for (SlotReading& reading : slot.readings)
        reading.confidence /= std::max(sum, 1.0);
    return slot;
}

/// From so many words on, three letters tell more than two.
constexpr std::size_t kManyWords = 2000;
/// Of fewer words than this most have a sequence of their own.
constexpr std::size_t kFewWords = 100;

/// Counts the sequences of letters in the words of a book, the ends of the words included.
class LetterSequences {
  public:
    explicit LetterSequences(std::size_t length) : length_(length) {}

    void add(std::string_view word) {
        forEach(word, [this](std::size_t place) { ++counts_[place]; });
    }

    /// Whether a word has a sequence that occurs in it alone.
    /// @param own how often the word has been added
    bool strange(std::string_view word, unsigned own) const {
        bool found = false;
        forEach(word, [&](std::size_t place) { found = found || counts_[place] <= own; });
        return found;
    }

  private:
    /// Different sequences may share a counter, which makes a few strange words look usual.
    static constexpr std::size_t kCounters = 1 << 16;

    template <typename Use> void forEach(std::string_view word, Use use) const {
        const std::string whole = "^" + std::string(word) + "$";
        for (std::size_t i = 0; i + length_ <= whole.size(); ++i)
            use(std::hash<std::string_view>()(std::string_view(whole).substr(i, length_)) % kCounters);
    }

    std::size_t length_;
    std::vector<unsigned> counts_ = std::vector<unsigned>(kCounters);
};

void findStrangeWords(std::vector<GuideSlot>& slots) {
    std::unordered_set<std::string_view> words;
    for (const GuideSlot& slot : slots)
        if (!slot.readings.empty())
            words.insert(slot.readings.front().word);
    if (words.size() < kFewWords)
        return;
    LetterSequences sequences(words.size() < kManyWords ? 2 : 3);
    for (const std::string_view word : words)
        sequences.add(word);
    for (GuideSlot& slot : slots)
        for (SlotReading& reading : slot.readings)
            reading.strange = sequences.strange(reading.word, words.contains(reading.word) ? 1 : 0);
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
    return {.slots = std::move(slots), .ranks = all.empty() ? 0 : all.back()->rank + 1};
}

} // namespace velmarin
