#pragma once

#include "side/AnswerText.h"

#include <optional>
#include <string_view>

namespace velmarin {

/// Position from 1 of the first `find` in `text` at or after `start`, comparing the capitals of single UTF-16 code
/// units; 0 if there is none or `find` is empty. A start below 1 is the start of the text.
int findIgnoringCase(int start, std::u16string_view text, std::u16string_view find);

/// The steps from hit to hit in a text.
class FindSteps {
  public:
    /// Where the next find begins, from 1. Below 1 it begins at the top: 0 after a miss or a cleared word, -1 after
    /// another word was typed.
    int pFindStartPosition = 0;

    void wordChanged() { pFindStartPosition = -1; }
    void wordCleared() { pFindStartPosition = 0; }
    /// Finds the next hit. After a miss the next step starts at the top.
    std::optional<TextHit> step(const AnswerText& text, std::string_view word);
};

} // namespace velmarin
