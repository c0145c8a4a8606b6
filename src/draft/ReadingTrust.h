#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace velmarin {

/// How likely a wrong reading of a word keeps the order between its neighbours by chance. A wrong letter is taken to be
/// at any place of the word alike: before the end of what the neighbours have in common it breaks the order, after it
/// less and less. All three are search words; empty for a neighbour that is not known.
double chanceToFit(std::string_view word, std::string_view before, std::string_view after);

/// A reading whose neighbours are known.
struct TrustSample {
    double confidence = 0; ///< as the recognizer has it, 0 to 1
    bool inOrder = true;
    double chanceToFit = 0;
    std::optional<bool> strange = {}; ///< as SlotReading::strange
};

/// How likely a reading of a given confidence is right, learned from the book itself: of the wrong readings a known
/// part breaks the order, so that those that do tell how many there are. Never falls as the confidence rises (isotonic
/// regression: Ayer et al., "An empirical distribution function for sampling with incomplete information", 1955). How
/// much less a strange word can be trusted is learned likewise: by how many more of the words that break the order are
/// strange. A few assumed samples steady both where a book has too few.
class ReadingTrust {
  public:
    explicit ReadingTrust(const std::vector<TrustSample>& samples);

    double operator()(double confidence, std::optional<bool> strange) const;

  private:
    struct Step {
        double confidence; ///< its lowest
        double errors, count;
    };
    std::vector<Step> steps_; ///< from the highest confidence to the lowest
    double strangeIfRight_, strangeIfWrong_;
};

} // namespace velmarin
