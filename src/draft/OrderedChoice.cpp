#include "draft/OrderedChoice.h"

namespace velmarin {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// The last word of a run.
struct RunEnd {
    std::size_t place = 0, word = 0;
    std::size_t before = kNone; ///< the end of the run without it
    double weight = 0;          ///< of the whole run
};

/// The heaviest run that ends at or below a rank.
class HeaviestRuns {
  public:
    explicit HeaviestRuns(std::size_t ranks) : best_(ranks + 1, kNone) {}

    std::size_t upTo(std::size_t rank, const std::vector<RunEnd>& ends) const {
        std::size_t found = kNone;
        for (std::size_t i = rank + 1; i > 0; i &= i - 1)
            if (best_[i] != kNone && (found == kNone || ends[best_[i]].weight > ends[found].weight))
                found = best_[i];
        return found;
    }

    void add(std::size_t rank, std::size_t end, const std::vector<RunEnd>& ends) {
        for (std::size_t i = rank + 1; i < best_.size(); i += i & (~i + 1))
            if (best_[i] == kNone || ends[end].weight > ends[best_[i]].weight)
                best_[i] = end;
    }

  private:
    std::vector<std::size_t> best_;
};

} // namespace

std::vector<std::optional<std::size_t>> heaviestChoice(const std::vector<std::vector<RankedWord>>& places,
                                                       std::size_t ranks) {
    HeaviestRuns runs(ranks);
    std::vector<RunEnd> ends;
    for (std::size_t place = 0; place < places.size(); ++place) {
        const std::size_t firstOfPlace = ends.size();
        for (std::size_t word = 0; word < places[place].size(); ++word) {
            const RankedWord& each = places[place][word];
            const std::size_t before = runs.upTo(each.rank, ends);
            ends.push_back({place, word, before, each.weight + (before == kNone ? 0 : ends[before].weight)});
        }
        for (std::size_t end = firstOfPlace; end < ends.size(); ++end)
            runs.add(places[place][ends[end].word].rank, end, ends);
    }
    std::vector<std::optional<std::size_t>> taken(places.size());
    for (std::size_t end = ranks == 0 ? kNone : runs.upTo(ranks - 1, ends); end != kNone; end = ends[end].before)
        taken[ends[end].place] = ends[end].word;
    return taken;
}

} // namespace velmarin
