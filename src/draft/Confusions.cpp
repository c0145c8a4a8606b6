#include "draft/Confusions.h"

#include "text/LetterCase.h"

#include <array>
#include <utility>

namespace velmarin {

namespace {

/// Letters that look alike, in capitals as search words have them, the usual ones first. Either is read for the other.
constexpr std::array<std::pair<std::string_view, std::string_view>, 34> kLookAlike{
    {{"RN", "M"}, {"E", "C"},  {"O", "C"}, {"I", "L"}, {"N", "U"}, {"H", "B"},  {"LI", "H"}, {"F", "T"}, {"F", "S"},
     {"A", "O"},  {"E", "O"},  {"T", "L"}, {"1", "I"}, {"1", "L"}, {"0", "O"},  {"CL", "D"}, {"V", "Y"}, {"VV", "W"},
     {"N", "H"},  {"R", "K"},  {"B", "R"}, {"E", "B"}, {"E", "K"}, {"P", "F"},  {"G", "C"},  {"G", "Q"}, {"U", "V"},
     {"N", "R"},  {"NI", "M"}, {"D", "O"}, {"I", "T"}, {"5", "S"}, {"II", "N"}, {"A", "E"}}};

bool isPlain(const std::string& text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

/// The letters in the case of the text that they replace.
std::string inCaseOf(std::string_view letters, std::string_view replaced) {
    std::string text(letters);
    const bool small = !replaced.empty() && replaced.back() >= 'a' && replaced.back() <= 'z';
    for (char& c : text)
        if (small && c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace

std::optional<std::string> confusedReading(const SlotReading& reading, const SlotBounds& bounds) {
    // Accents and the letters of a book's own order do not stay at their place in a search word.
    const bool alike = isPlain(reading.text) && Uppercase(reading.text) == reading.word;
    for (const auto& [one, other] : kLookAlike)
        for (const auto& [read, meant] : {std::pair(one, other), std::pair(other, one)})
            for (std::size_t at = reading.word.find(read); at != std::string::npos;
                 at = reading.word.find(read, at + 1)) {
                std::string word = reading.word;
                word.replace(at, read.size(), meant);
                if (!alike || !bounds.admit(word))
                    continue;
                std::string text = reading.text;
                return text.replace(at, read.size(), inCaseOf(meant, std::string_view(text).substr(at, read.size())));
            }
    return std::nullopt;
}

} // namespace velmarin
