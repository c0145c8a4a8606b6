#include "reading/EntryProof.h"

#include "reading/HeadParts.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

namespace velmarin {

namespace {

constexpr std::size_t kLeastLetters = 4; // bytes; a shorter word is found by chance
// What remains of the doubt in a known word, and in one that is unknown or may be misread in both places.
constexpr double kDoubtOfKnown = 0.3, kDoubtOfUnknown = 0.5, kLeastConfidence = 0.9;
// Of two readings, the one that an entry begins with: known, or as unknown as the other.
constexpr double kReplacedByKnown = 0.97, kReplaced = 0.4;

// What ends a headword may be close to it, as in "Hob'bly,a.".
std::string upToMark(const std::string& text) {
    const std::size_t end = text.find_first_of(".,;:([");
    return text.substr(0, end == 0 ? text.size() : end);
}

// The first words of the entries, as they were read best: among the other readings are the same mistakes.
std::set<std::string> beginningsOf(const PageReading& reading) {
    std::set<std::string> beginnings;
    for (const auto& column : reading.entryStarts) {
        for (const TextLine& line : column) {
            if (!line.words.empty())
                beginnings.insert(lettersOf(upToMark(line.words.front().text)));
        }
    }
    return beginnings;
}

void prove(TextWord& word, const std::set<std::string>& beginnings, const KnownWord& known) {
    const auto begins = [&](const std::string& text) {
        const std::string letters = lettersOf(text);
        return letters.size() >= kLeastLetters && beginnings.contains(letters);
    };
    const bool isKnown = known(word.text);
    if (begins(word.text)) {
        const bool sure = isKnown && word.confidence >= kLeastConfidence;
        word.confidence = 1 - (sure ? kDoubtOfKnown : kDoubtOfUnknown) * (1 - word.confidence);
        return;
    }
    const auto other = std::ranges::find_if(word.others, begins);
    if (other == word.others.end())
        return;
    const bool otherIsKnown = known(*other);
    if (isKnown && !otherIsKnown)
        return;
    std::string text = std::move(*other);
    word.others.erase(other);
    word.others.insert(word.others.begin(), std::exchange(word.text, std::move(text)));
    word.confidence = otherIsKnown && !isKnown ? kReplacedByKnown : kReplaced;
}

} // namespace

void proveByEntries(PageReading& reading, const KnownWord& known) {
    const std::set<std::string> beginnings = beginningsOf(reading);
    for (TextLine& line : reading.head.lines) {
        for (TextWord& word : line.words)
            prove(word, beginnings, known);
    }
}

} // namespace velmarin
