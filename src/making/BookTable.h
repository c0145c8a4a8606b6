#pragma once

#include "making/GuideWords.h"
#include "making/SeparatedValues.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// One page of a book: its picture and the number printed on it, which may be empty.
struct BookPage {
    std::string file;
    std::string number = {};
};

/// A row of a table that is not used, as a spreadsheet numbers it, and why.
struct TableProblem {
    std::size_t row = 0;
    std::string what;
};

/// What a table says of a book.
struct BookTable {
    std::vector<BookPage> pages;
    /// In the order of the pages; on a page in the order of the rows.
    std::vector<BookEntry> entries;
    std::vector<TableProblem> problems;
};

/// The files in a field `errata`.
std::vector<std::string> errataOf(std::string_view field);

/// Reads a table of a book. Columns by name, of which `page` and one of `first` and `headword` are needed:
///
///     page      the file name of a page, with or without its extension, or its printed number
///     number    the number printed on it; later pages count on from there until another is given, "-" for none
///     first     the first headword of the page, as its guide words have it
///     last      the last one
///     headword  an entry of the page; a page has as many rows as entries
///     errata    files of further pages of the entry, separated by ";"
///
/// @param pages the pages of the book in order, with the printed numbers that are known without the table
BookTable readBookTable(const SeparatedValues& table, std::vector<BookPage> pages, const KeyRule& rule,
                        const IndexOrder& order);

} // namespace velmarin
