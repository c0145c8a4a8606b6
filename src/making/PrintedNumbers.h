#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The number after a printed page number: "13" after "12", "xiii" after "xii", "A13" after "A12". nullopt for what
/// does not end in a number.
std::optional<std::string> nextPrintedNumber(std::string_view number);

/// The text of a Roman number of 1 to 3999 in small letters, and the value of such a text; 0 for what is not one.
std::string romanNumber(int value);
int romanValue(std::string_view text);

/// Marks a page without a printed number in a list of them, and ends a run.
inline constexpr std::string_view kNoPrintedNumber = "-";

/// Fills the gaps of a list of printed numbers, one a page: an empty one counts on from the page before. Pages before
/// the first number, after a kNoPrintedNumber, and after what cannot be counted on stay empty, and kNoPrintedNumber
/// becomes empty.
std::vector<std::string> filledPrintedNumbers(std::vector<std::string> numbers);

} // namespace velmarin
