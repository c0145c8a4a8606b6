#pragma once

#include <string>

namespace velmarin {

/// A possible reading of a word.
struct Guess {
    std::string text;
    double confidence = 0; ///< 0 to 1: how likely it is right
};

} // namespace velmarin
