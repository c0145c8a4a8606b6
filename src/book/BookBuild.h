#pragma once

#include "book/BookFolder.h"
#include "making/NewDictionary.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// The dictionary that a book makes, before it is written.
struct BookPlan {
    NewDictionary dictionary = {};
    Draft draft = {};                       ///< a row for each page of the dictionary, in its order
    std::vector<std::size_t> doubtful = {}; ///< rows that a person has to look at
    std::vector<std::string> removed = {};  ///< pages of the draft that the scan does not have
    std::vector<BookEntry> entries = {};    ///< what `misplaced` counts in
    std::vector<Misplaced> misplaced = {};
};

/// Plans the dictionary of a book from its pages and its draft. All pages are in the dictionary, those without
/// headwords too. Fails if there is no draft, or no headword in it.
///
/// @param settings those of the book, or with changes for this dictionary
Result planBook(const BookFolder& book, const BookSettings& settings, BookPlan& plan);

} // namespace velmarin
