#pragma once

#include "reading/Guess.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Whether a character is a Greek accent or breathing that stands alone, or another mark of Greek that is no letter.
bool isGreekMark(char32_t c);

/// A reading with Greek letters as a book prints it: without accents that stand alone, with "θ" for "ϑ" and the like,
/// and with Greek letters for the Latin ones that look like them. Other texts stay unchanged.
std::string plainGreek(std::string_view text);

/// How often a text has kappa, and how often chi.
struct KappaCount {
    std::size_t kappas = 0, chis = 0;

    void add(std::string_view text);
    /// In many Greek types kappa looks like chi, but for its feet on the line, and is read as one. In Greek it is the
    /// more frequent by far.
    bool readAsChi() const { return chis > kappas && chis >= 10; }
};

/// The readings of a word in such type: with kappa for each chi, which is likelier, with one chi left, and as read.
std::vector<Guess> withKappa(const std::vector<Guess>& readings);

} // namespace velmarin
