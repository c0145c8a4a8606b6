#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "making/IndexPlan.h"
#include "press/Design.h"
#include "text/SearchWord.h"

namespace velmarin {

/// One article of a dictionary, ready to be typeset.
struct Article {
    std::string key;   ///< the entry of the index: the headword as readers type it
    std::string guide; ///< the guide word in the head of the page
    std::string note;  ///< follows the delimiter in the index; may be empty
    std::vector<Paragraph> paragraphs;
    std::vector<Paragraph>
        supplement{};         ///< the whole article if `paragraphs` is a shortened form; set on pages of its own
    std::string furtherKey{}; ///< a second entry of the index; may be empty
};

/// All that is needed to make one dictionary.
struct Book {
    Title title;
    Design design;
    IndexOrder order;
    bool independent = false;
    std::vector<Article> articles;
};

/// Sorts the lines of an index by their search words. Of lines with equal search words, the first stays, and those
/// after it on the same page; each gets the errata of all.
std::vector<IndexLine> sortedLines(std::vector<IndexLine> lines, const IndexOrder& order);

/// Makes the dictionary in `folder`, which does not exist yet. Throws std::runtime_error naming a file that cannot be
/// written.
void makeBook(Book book, const std::filesystem::path& folder);

} // namespace velmarin
