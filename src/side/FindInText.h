#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace velmarin {

/// Position from 1 of the first `find` in `text` at or after `start`, case ignored by the capitals of single code units
/// (UTF-16); 0 where there is none or `find` is empty. A start below 1 is the start of the text.
int findIgnoringCase(int start, std::u16string_view text, std::u16string_view find);

/// Where the next find in the text begins: the steps from hit to hit.
class FindSteps {
  public:
    /// From 1; 0 and -1: from the start of the text.
    int pFindStartPosition = 0;

    void wordChanged() { pFindStartPosition = -1; }
    void cleared() { pFindStartPosition = 0; }

    /// One step: `find` gives the position from 1 of the first hit at or after a position, 0 where there is none.
    /// Returns that; a miss makes the next step start from the top.
    int step(int wordLength, const std::function<int(int start)>& find);
};

} // namespace velmarin
