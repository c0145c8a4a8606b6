#pragma once

#include "text/SearchWord.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmarin {

/// How a book sorts its headwords where it differs from the program: letters that it counts as others, and characters
/// that it passes over. The key of a headword is the form of it that sorts by the program's order as the headword does
/// in the book.
class KeyRule {
  public:
    KeyRule() = default;
    /// @param ignore the characters that the book passes over, such as "-' "
    /// @param alike letters and what they count as, such as "ä=ae, ø=o"; commas and blanks separate the pairs. Small
    ///              letters stand for capitals too.
    /// nullopt if a pair has no "=" or nothing before it.
    static std::optional<KeyRule> parse(std::string_view ignore, std::string_view alike);

    /// The key of a headword, composed (NFC): letters first become what they count as, then characters are passed over.
    std::string keyOf(std::string_view headword) const;

  private:
    std::vector<std::string> ignored_;
    std::vector<std::pair<std::string, std::string>> alike_;
};

} // namespace velmarin
