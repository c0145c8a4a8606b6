#include "draft/SlotRun.h"

#include "draft/OrderedChoice.h"

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

/// What a reading in order is worth: the logarithm of its odds, above that of a wrong word that keeps the order by
/// chance.
constexpr double kWorthOfOrder = 3, kLeastWorth = 0.1, kWorthOfSet = 1000;
/// A word of the run that is so many pages from the next one is not the beginning or the end of the alphabet.
constexpr std::size_t kLonely = 6;
/// How many pages can be bound together at a wrong place, and how far from their own.
constexpr std::size_t kMostMoved = 16, kFarthestMoved = 40;

double worthOf(const SlotReading& reading, bool set) {
    if (set)
        return kWorthOfSet;
    const double likely = std::clamp(reading.confidence, 0.02, 0.98);
    return std::max(std::log(likely / (1 - likely)) + kWorthOfOrder, kLeastWorth);
}

std::vector<std::size_t> slotsInRun(const SlotRun& run) {
    std::vector<std::size_t> in;
    for (std::size_t slot = 0; slot < run.taken.size(); ++slot)
        if (run.taken[slot])
            in.push_back(slot);
    return in;
}

/// Drops words at the ends of the run that are alone there, or that are titles: on pages with one word where the book
/// has two.
void trimEnds(SlotRun& run, const std::vector<GuideSlot>& slots) {
    std::vector<std::size_t> in = slotsInRun(run);
    std::size_t inPairs = 0;
    const auto paired = [&](std::size_t slot) {
        return run.taken[slot].has_value() && run.taken[slot ^ 1].has_value();
    };
    for (const std::size_t slot : in)
        inPairs += paired(slot) ? 1 : 0;
    const bool pairs = inPairs * 4 > in.size() * 3;
    const auto outside = [&](std::size_t slot, std::size_t next) {
        return !slots[slot].set &&
               ((pairs && !paired(slot)) || (next > slot ? next - slot : slot - next) > 2 * kLonely);
    };
    while (in.size() > 3 && outside(in[0], in[1])) {
        run.taken[in[0]].reset();
        in.erase(in.begin());
    }
    while (in.size() > 3 && outside(in.back(), in[in.size() - 2])) {
        run.taken[in.back()].reset();
        in.pop_back();
    }
    run.begin = in.empty() ? 0 : in.front() / 2;
    run.end = in.empty() ? run.taken.size() / 2 : in.back() / 2 + 1;
}

/// Finds pages whose words are in order among themselves and fit between two pages of the run near by.
class MovedPages {
  public:
    MovedPages(SlotRun& run, const std::vector<GuideSlot>& slots) : run_(run), slots_(slots), in_(slotsInRun(run)) {}

    void mark() {
        const std::size_t pages = slots_.size() / 2;
        for (std::size_t begin = 0; begin < pages;) {
            std::size_t end = begin;
            while (end < pages && end - begin < kMostMoved && isOutside(end) && continues(begin, end))
                ++end;
            if (end > begin && belongsTogether(begin, end))
                std::fill(run_.moved.begin() + static_cast<std::ptrdiff_t>(begin),
                          run_.moved.begin() + static_cast<std::ptrdiff_t>(end), true);
            begin = std::max(end, begin + 1);
        }
    }

  private:
    const std::string& wordOf(std::size_t slot) const { return slots_[slot].readings.front().word; }
    bool read(std::size_t slot) const { return !slots_[slot].readings.empty(); }

    /// No word of the page is in the run, and its own are in order.
    bool isOutside(std::size_t page) const {
        const std::size_t first = 2 * page, last = first + 1;
        return !run_.taken[first] && !run_.taken[last] && (read(first) || read(last)) &&
               !(read(first) && read(last) && wordOf(last) < wordOf(first));
    }

    const std::string& highest(std::size_t page) const { return wordOf(read(2 * page + 1) ? 2 * page + 1 : 2 * page); }
    const std::string& lowest(std::size_t page) const { return wordOf(read(2 * page) ? 2 * page : 2 * page + 1); }

    bool continues(std::size_t begin, std::size_t page) const {
        return page == begin || highest(page - 1) <= lowest(page);
    }

    /// Whether the pages fit between two neighbours of the run that are themselves on different pages.
    bool belongsTogether(std::size_t begin, std::size_t end) const {
        const std::string& low = lowest(begin);
        const std::string& high = highest(end - 1);
        if (low == high)
            return false;
        const auto after =
            std::upper_bound(in_.begin(), in_.end(), low, [&](const std::string& word, std::size_t slot) {
                return word < slots_[slot].readings[*run_.taken[slot]].word;
            });
        if (after == in_.begin() || after == in_.end())
            return false;
        const std::size_t next = *after, previous = *(after - 1);
        const std::size_t page = next / 2;
        const std::size_t distance = page > begin ? page - begin : begin - page;
        return previous / 2 != page && distance <= kFarthestMoved &&
               high <= slots_[next].readings[*run_.taken[next]].word;
    }

    SlotRun& run_;
    const std::vector<GuideSlot>& slots_;
    std::vector<std::size_t> in_;
};

/// The bounds of the words of a page that is moved: those of the run at the place where it belongs.
SlotBounds boundsElsewhere(std::string_view word, const std::vector<std::string_view>& words) {
    const auto after = std::upper_bound(words.begin(), words.end(), word);
    return {after == words.begin() ? std::string_view() : *(after - 1),
            after == words.end() ? std::string_view() : *after};
}

} // namespace

SlotRun heaviestRun(const RankedSlots& ranked) {
    std::vector<std::vector<RankedWord>> places;
    places.reserve(ranked.guideSlots.size());
    for (const GuideSlot& slot : ranked.guideSlots) {
        std::vector<RankedWord>& words = places.emplace_back();
        for (const SlotReading& reading : slot.readings)
            words.push_back({reading.rank, worthOf(reading, slot.set)});
    }
    SlotRun run{.taken = heaviestChoice(places, ranked.ranks)};
    trimEnds(run, ranked.guideSlots);
    // Titles may have kept out words at the ends of the alphabet.
    for (std::size_t slot = 0; slot < places.size(); ++slot)
        if (slot / 2 + 1 < run.begin || slot / 2 > run.end)
            places[slot].clear();
    const std::size_t begin = run.begin, end = run.end;
    run.taken = heaviestChoice(places, ranked.ranks);
    const std::vector<std::size_t> in = slotsInRun(run);
    run.begin = in.empty() ? begin : in.front() / 2;
    run.end = in.empty() ? end : in.back() / 2 + 1;
    run.moved.resize(ranked.guideSlots.size() / 2);
    MovedPages(run, ranked.guideSlots).mark();
    return run;
}

std::vector<SlotBounds> boundsOf(const SlotRun& run, const std::vector<GuideSlot>& slots,
                                 const std::vector<bool>& trusted) {
    std::vector<SlotBounds> bounds(slots.size());
    const auto wordOf = [&](std::size_t slot) -> std::string_view {
        return slots[slot].readings[*run.taken[slot]].word;
    };
    const auto counts = [&](std::size_t slot) { return run.taken[slot] && trusted[slot]; };
    std::vector<std::string_view> words;
    std::string_view before;
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        bounds[slot].before = before;
        if (counts(slot)) {
            before = wordOf(slot);
            words.push_back(before);
        }
    }
    std::string_view after;
    for (std::size_t slot = slots.size(); slot-- > 0;) {
        bounds[slot].after = after;
        if (counts(slot))
            after = wordOf(slot);
    }
    for (std::size_t slot = 0; slot < slots.size(); ++slot)
        if (run.moved[slot / 2] && !slots[slot].readings.empty())
            bounds[slot] = boundsElsewhere(slots[slot].readings.front().word, words);
    return bounds;
}

} // namespace velmarin
