#include "draft/SlotDecision.h"

#include "draft/Confusions.h"
#include "draft/ReadingTrust.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

/// If the best reading is wrong, one of the others is right at most this likely: if it breaks the order, and if not.
constexpr double kOthersRight = 0.9, kOthersRightInOrder = 0.8;
constexpr double kTrustOfConfused = 0.3;
/// Where an entry begins is less sure than where a guide word is, unless its initial is new: pages on which a letter
/// begins often have no guide words.
constexpr double kTrustOfEntry = 0.9, kTrustOfNewLetter = 0.99;
/// If fewer readings than this keep the order, it is not the order of the book, and nothing follows from it.
constexpr double kLeastInOrder = 0.6;
/// Words of the run below this do not bound others.
constexpr double kTrustOfBound = 0.5;
/// A reading that breaks the order with so many words of the run is wrong without a doubt.
constexpr std::size_t kMostContested = 3;

double logit(double chance) {
    const double c = std::clamp(chance, 1e-6, 1 - 1e-6);
    return std::log(c / (1 - c));
}

double fromLogit(double value) {
    return 1 / (1 + std::exp(-value));
}

double chanceIn(const SlotBounds& bounds, const std::string& word) {
    if (bounds.admit(word))
        return chanceToFit(word, bounds.before, bounds.after);
    // Of a word that does not fit, only how much the neighbours have in common counts.
    std::string like(bounds.before.substr(0, word.size()));
    like.resize(word.size(), '\0');
    const auto differ = std::mismatch(like.begin(), like.end(), bounds.after.begin(), bounds.after.end()).first;
    std::fill(differ, like.end(), '\0');
    return chanceToFit(like, bounds.before, bounds.after);
}

class Decider {
  public:
    Decider(const std::vector<GuideSlot>& slots, const SlotRun& run)
        : slots_(slots), run_(run), bounds_(boundsOf(run, slots, std::vector<bool>(slots.size(), true))),
          trust_(ReadingTrust(samples())) {}

    std::vector<SlotDecision> run() {
        const std::vector<TrustSample> all = samples();
        const auto inOrder =
            std::count_if(all.begin(), all.end(), [](const TrustSample& each) { return each.inOrder; });
        orderHolds_ = static_cast<double>(inOrder) >= kLeastInOrder * static_cast<double>(all.size());
        decideAll();
        std::vector<bool> trusted;
        trusted.reserve(slots_.size());
        for (const SlotDecision& each : decisions_)
            trusted.push_back(each.trust >= kTrustOfBound);
        bounds_ = boundsOf(run_, slots_, trusted);
        trust_ = ReadingTrust(samples());
        decideAll();
        for (std::size_t slot = 0; slot < slots_.size(); ++slot)
            contest(slot);
        return std::move(decisions_);
    }

  private:
    std::vector<TrustSample> samples() const {
        std::vector<TrustSample> samples;
        for (std::size_t slot = 2 * run_.begin; slot < 2 * run_.end; ++slot) {
            if (slots_[slot].set || slots_[slot].entry || slots_[slot].readings.empty() || run_.moved[slot / 2])
                continue;
            const SlotReading& best = slots_[slot].readings.front();
            samples.push_back(
                {best.confidence, bounds_[slot].admit(best.word), chanceIn(bounds_[slot], best.word), best.strange});
        }
        return samples;
    }

    void decideAll() {
        decisions_.clear();
        decisions_.reserve(slots_.size());
        for (std::size_t slot = 0; slot < slots_.size(); ++slot)
            decisions_.push_back(decided(slot));
    }

    SlotDecision decided(std::size_t slot) const {
        const std::vector<SlotReading>& readings = slots_[slot].readings;
        if (readings.empty())
            return {};
        if (slots_[slot].set)
            return {readings.front().text, 1, false};
        if (!orderHolds_)
            return {readings.front().text, readings.front().confidence / 2, false};
        const double best = trust_(readings.front().confidence, readings.front().strange);
        double others = 0;
        for (std::size_t i = 1; i < readings.size(); ++i)
            others += readings[i].confidence;
        const double share = others / std::max(1 - readings.front().confidence, 1e-9);
        const bool inOrder = bounds_[slot].admit(readings.front().word);
        const double left = (1 - best) * std::min(share, inOrder ? kOthersRightInOrder : kOthersRight);
        // Another word of the page fits as well as the best reading does, which proves nothing for it.
        const double leastChance = inOrder ? chanceIn(bounds_[slot], readings.front().word) : 0;
        double all = 1 - best - left, highest = 0; // at first that none is right
        std::size_t taken = readings.size();
        for (std::size_t i = 0; i < readings.size(); ++i) {
            if (!bounds_[slot].admit(readings[i].word))
                continue;
            const double before = i == 0 ? best : left * readings[i].confidence / std::max(others, 1e-9);
            const double likely = before / std::max(chanceIn(bounds_[slot], readings[i].word), leastChance);
            all += likely;
            if (likely > highest) {
                highest = likely;
                taken = i;
            }
        }
        if (taken == readings.size())
            return proposed(slot);
        return {readings[taken].text,
                highest / all * (slots_[slot].entry ? trustOfEntry(slot, readings[taken].word) : 1), taken > 0};
    }

    double trustOfEntry(std::size_t slot, const std::string& word) const {
        const std::string_view before = bounds_[slot].before;
        const auto initialOf = [](std::string_view text) {
            return text.substr(0, text.empty() ? 0 : decodeUtf8(text, 0).length);
        };
        return !before.empty() && initialOf(word) != initialOf(before) ? kTrustOfNewLetter : kTrustOfEntry;
    }

    /// For a slot of which no reading fits.
    SlotDecision proposed(std::size_t slot) const {
        for (const SlotReading& reading : slots_[slot].readings)
            if (auto text = confusedReading(reading, bounds_[slot]))
                return {std::move(*text), kTrustOfConfused * chanceToKeep(slot), true};
        return {slots_[slot].readings.front().text, 0, false};
    }

    double chanceToKeep(std::size_t slot) const { return 1 - slots_[slot].readings.front().confidence / 2; }

    /// If the best reading of a slot breaks the order with few words of the run, one side is wrong: those words can be
    /// trusted only as far as they outweigh it.
    void contest(std::size_t slot) {
        if (slots_[slot].readings.empty() || run_.moved[slot / 2] || slot < 2 * run_.begin || slot >= 2 * run_.end)
            return;
        const SlotReading& best = slots_[slot].readings.front();
        if (bounds_[slot].admit(best.word))
            return;
        std::vector<std::size_t> against;
        const auto wordOf = [&](std::size_t other) { return slots_[other].readings[*run_.taken[other]].word; };
        std::size_t seen = 0;
        for (std::size_t other = slot; other-- > 0 && seen <= kMostContested;)
            if (run_.taken[other] && ++seen && best.word < wordOf(other))
                against.push_back(other);
        seen = 0;
        for (std::size_t other = slot + 1; other < slots_.size() && seen <= kMostContested; ++other)
            if (run_.taken[other] && ++seen && wordOf(other) < best.word)
                against.push_back(other);
        if (against.size() > kMostContested)
            return;
        double together = -logit(slots_[slot].set ? 1 : trust_(best.confidence, best.strange));
        for (const std::size_t other : against)
            together += logit(decisions_[other].trust);
        for (const std::size_t other : against)
            if (!slots_[other].set)
                decisions_[other].trust = std::min(decisions_[other].trust, fromLogit(together));
    }

    const std::vector<GuideSlot>& slots_;
    const SlotRun& run_;
    std::vector<SlotBounds> bounds_;
    ReadingTrust trust_;
    bool orderHolds_ = true;
    std::vector<SlotDecision> decisions_ = {};
};

} // namespace

std::vector<SlotDecision> decideSlots(const std::vector<GuideSlot>& slots, const SlotRun& run) {
    return Decider(slots, run).run();
}

} // namespace velmarin
