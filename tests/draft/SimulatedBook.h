#pragma once

#include "draft/Draft.h"
#include "making/KeyRule.h"
#include "reading/PageGuess.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace velmarin::test {

/// How badly the pages of a book are read. Parts of 1.
struct ReadingFaults {
    double wrong = 0;             ///< words with a letter or two misread
    double lost = 0;              ///< words not read at all
    double confirmed = 0;         ///< right words that an entry of the page confirms
    std::size_t swappedEvery = 0; ///< two leaves are bound in the wrong order; 0 for never
    std::size_t plateEvery = 0;   ///< a plate comes after such a page
    std::size_t frontMatter = 0;  ///< pages before the alphabet
};

/// A book whose words are known, and what was read of it.
struct SimulatedBook {
    std::vector<std::vector<std::string>> headwords = {}; ///< by page; none on plates and before the alphabet
    std::vector<DraftPage> truth = {};
    std::vector<PageGuess> guesses = {};
};

/// Words in order, made of syllables.
std::vector<std::string> inventedHeadwords(std::size_t count, std::mt19937& random);

SimulatedBook simulatedBook(const std::vector<std::string>& headwords, std::size_t perPage, const ReadingFaults& faults,
                            std::mt19937& random);

/// What a draft of it is worth.
struct DraftFigures {
    std::size_t pages = 0, rightBefore = 0, rightAfter = 0, doubtful = 0;
    std::size_t falselyTrusted = 0; ///< certain or mended, and wrong
    std::size_t headwords = 0, opened = 0;
    std::size_t openedAfterSetting = 0; ///< after a person has set the doubtful rows
    std::size_t asked = 0;              ///< rows that the person had to set
};
DraftFigures figuresOf(const SimulatedBook& book);

} // namespace velmarin::test
