#include "draft/ReadingTrust.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmarin {

namespace {

/// A wrong letter just after what the neighbours have in common, and later while the word is like one of them.
constexpr double kOutsideAfterCommon = 0.7, kOutsideBesideOne = 0.5;

/// The share of errors at a confidence, as measured on worn scans, and how many samples it counts as.
struct Assumption {
    double confidence, errors, weight;
};
constexpr std::array<Assumption, 10> kAssumptions{{{1.0, 0.0005, 100},
                                                   {0.96, 0.002, 100},
                                                   {0.93, 0.008, 40},
                                                   {0.9, 0.02, 40},
                                                   {0.85, 0.08, 40},
                                                   {0.8, 0.12, 40},
                                                   {0.65, 0.2, 20},
                                                   {0.4, 0.6, 20},
                                                   {0.1, 0.85, 20},
                                                   {0.0, 0.95, 20}}};
/// The assumed share of strange words among right and wrong ones, and how many samples it counts as.
constexpr double kStrangeIfRight = 0.2, kStrangeIfWrong = 0.6, kWeightOfStrange = 20;
/// From here on the words in order count as right.
constexpr double kSureConfidence = 0.9;
/// From here on a word is known and was read alike several times, so that strange letters say nothing more.
constexpr double kKnownConfidence = 0.96;
/// One reading that breaks the order is not taken for more wrong ones than this lets it.
constexpr double kMostChance = 0.5;
/// Neither is ever certain.
constexpr double kLeastErrors = 0.0002, kMostErrors = 0.97;

std::size_t common(std::string_view one, std::string_view other) {
    return static_cast<std::size_t>(std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first -
                                    one.begin());
}

double assumedErrors(double confidence) {
    for (std::size_t i = 1; i < kAssumptions.size(); ++i)
        if (const Assumption& above = kAssumptions[i - 1], &below = kAssumptions[i]; below.confidence <= confidence)
            return std::lerp(below.errors, above.errors,
                             std::min(1.0, (confidence - below.confidence) / (above.confidence - below.confidence)));
    return kAssumptions.back().errors;
}

} // namespace

double chanceToFit(std::string_view word, std::string_view before, std::string_view after) {
    if (word.empty() || (before.empty() && after.empty()))
        return 1;
    const std::size_t withBefore = common(word, before), withAfter = common(word, after);
    const std::size_t both = std::min(withBefore, withAfter), one = std::max(withBefore, withAfter);
    double outside = 0;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (i < both)
            outside += 1;
        else if (i == both)
            outside += kOutsideAfterCommon;
        else if (i <= one)
            outside += kOutsideBesideOne;
    }
    return std::max(1 - outside / static_cast<double>(word.size()), 0.02);
}

ReadingTrust::ReadingTrust(const std::vector<TrustSample>& samples) {
    double right = kWeightOfStrange, wrong = kWeightOfStrange;
    strangeIfRight_ = kStrangeIfRight * right;
    strangeIfWrong_ = kStrangeIfWrong * wrong;
    std::vector<Step> all;
    for (const TrustSample& sample : samples) {
        if (sample.strange && (!sample.inOrder || sample.confidence >= kSureConfidence)) {
            (sample.inOrder ? right : wrong) += 1;
            (sample.inOrder ? strangeIfRight_ : strangeIfWrong_) += *sample.strange ? 1 : 0;
        }
        all.push_back({sample.confidence, sample.inOrder ? 0 : 1 / (1 - std::min(sample.chanceToFit, kMostChance)), 1});
        // Wrong letters in the tails of words hardly ever show, so that half of what is assumed is not unlearned.
        all.push_back({sample.confidence, assumedErrors(sample.confidence), 1});
    }
    strangeIfRight_ /= right;
    strangeIfWrong_ = std::max(strangeIfWrong_ / wrong, strangeIfRight_);
    for (const Assumption& each : kAssumptions)
        all.push_back({each.confidence, each.errors * each.weight, each.weight});
    std::stable_sort(all.begin(), all.end(),
                     [](const Step& one, const Step& other) { return one.confidence > other.confidence; });
    for (const Step& each : all) {
        steps_.push_back(each);
        while (steps_.size() > 1) {
            const Step& last = steps_.back();
            Step& previous = steps_[steps_.size() - 2];
            const bool rises = previous.errors / previous.count < last.errors / last.count;
            if (rises && previous.confidence > last.confidence)
                break;
            previous = {last.confidence, previous.errors + last.errors, previous.count + last.count};
            steps_.pop_back();
        }
    }
}

double ReadingTrust::operator()(double confidence, std::optional<bool> strange) const {
    const auto step =
        std::find_if(steps_.begin(), steps_.end(), [&](const Step& each) { return each.confidence <= confidence; });
    const Step& found = step == steps_.end() ? steps_.back() : *step;
    const double errors = std::clamp(found.errors / found.count, kLeastErrors, kMostErrors);
    if (!strange || confidence >= kKnownConfidence)
        return 1 - errors;
    const double wrong = errors * (*strange ? strangeIfWrong_ : 1 - strangeIfWrong_);
    const double right = (1 - errors) * (*strange ? strangeIfRight_ : 1 - strangeIfRight_);
    return right / (right + wrong);
}

} // namespace velmarin
