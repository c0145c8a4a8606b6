#pragma once

#include "reading/Guess.h"
#include "reading/PageReading.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Words of a line in the head or foot of a page that belong together: a guide word, a page number, a running title.
struct HeadPart {
    double left = 0, right = 0; ///< of the page's width, from 0 to 1
    double y = 0;               ///< the middle of its line, of the page's height
    bool foot = false;
    std::size_t line = 0; ///< of the head or foot
    bool joined = false;  ///< a dash or a word joins it to the part before it, as the second guide word of "AAR–ABB"
    bool number = false;  ///< has digits, or what is taken for them, and no other letters
    std::vector<Guess> readings = {};
    std::vector<Guess> figures = {}; ///< of a short part: the numbers that it may be, misread

    double middle() const { return (left + right) / 2; }
};

/// What joins the two guide words of a page in a book that prints them as one: "AAR–ABB", "Aar bis Abb". Long dashes
/// always do.
struct GuideJoint {
    bool hyphen = false;
    bool word = false; ///< "bis", "to", "à"
};

/// What the pages of a book have in common.
GuideJoint guideJointOf(const std::vector<PageReading>& readings);

/// The parts of the head and the foot of a page, from the top and from the left. Words without letters and digits are
/// left out.
std::vector<HeadPart> headPartsOf(const PageReading& reading, const GuideJoint& joint);

/// A text without what is not part of a headword at its ends: punctuation, asterisks, daggers, digits of homographs.
std::string trimmedHeadword(std::string_view text);

/// The letters of a text as a search word has them: what is left when case, accents, blanks and marks are ignored.
std::string lettersOf(std::string_view text);

/// Whether a text is a Roman number, all in capitals or all in small letters.
bool looksRoman(std::string_view text);

} // namespace velmarin
