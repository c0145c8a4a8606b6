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
constexpr double kProved = 0.99, kReplaced = 0.93;

// The first words of the entries, as they were read best: among the other readings are the same mistakes.
std::set<std::string> beginningsOf(const PageReading& reading) {
    std::set<std::string> beginnings;
    for (const auto& column : reading.entryStarts) {
        for (const TextLine& line : column) {
            if (!line.words.empty())
                beginnings.insert(lettersOf(line.words.front().text));
        }
    }
    return beginnings;
}

void prove(TextWord& word, const std::set<std::string>& beginnings) {
    const auto begins = [&](const std::string& text) {
        const std::string letters = lettersOf(text);
        return letters.size() >= kLeastLetters && beginnings.contains(letters);
    };
    if (begins(word.text)) {
        word.confidence = std::max(word.confidence, kProved);
        return;
    }
    const auto other = std::ranges::find_if(word.others, begins);
    if (other == word.others.end())
        return;
    std::string text = std::move(*other);
    word.others.erase(other);
    word.others.insert(word.others.begin(), std::exchange(word.text, std::move(text)));
    word.confidence = kReplaced;
}

} // namespace

void proveByEntries(PageReading& reading) {
    const std::set<std::string> beginnings = beginningsOf(reading);
    for (TextLine& line : reading.head.lines) {
        for (TextWord& word : line.words)
            prove(word, beginnings);
    }
}

} // namespace velmarin
