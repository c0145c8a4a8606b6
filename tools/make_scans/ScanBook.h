#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// How the guide words of a book are arranged.
enum class HeadStyle : std::uint8_t {
    Split,   ///< the first at the left, the last at the right
    Joined,  ///< "FIRST–LAST" in the middle
    First,   ///< the first alone, at the outer corner
    Left,    ///< the first alone, at the left of each page
    Right,   ///< the last alone, at the right of each page
    Columns, ///< one over each column: the first that begins in it, over the last one the last of the page
    None,    ///< no guide words
};

/// What is printed around the columns.
struct ScanLayout {
    HeadStyle head = HeadStyle::Split;
    bool capitals = false;    ///< guide words in capitals
    bool bold = true;         ///< guide words
    bool outerNumber = false; ///< the number at the outer corner, else in the middle
    bool numberAtFoot = false;
    bool rule = true; ///< below the head
    bool columnRules = false;
    /// The left guide word names the article at the top of the page even if it began before, else the first that
    /// begins on it.
    bool running = false;
    /// Each letter of the alphabet begins a page, which has no guide words.
    bool letterPages = false;
    std::size_t plateEvery = 0; ///< pages between two plates; 0 for none
    int firstNumber = 1;        ///< printed on the first page of text
    bool headAtFoot = false;    ///< guide words and number are below the columns
    bool title = false;         ///< a running title in the middle of the head, the number at the outer corner
    bool lineNumbers = false;   ///< of every fifth line, in the margins
};

/// A book to be scanned: its articles are in the book's own order.
struct ScanBook {
    Book book;
    ScanLayout layout;
    std::string languages;  ///< for the recognizer, such as "eng"
    std::string alike = {}; ///< how the book sorts, as making/KeyRule reads it
};

/// Changes a book's layout: "left", "right" or "columns" places its guide words, "foot" puts them below the columns,
/// "no-rule", "title" and "line-numbers" change what else is printed. False for another name.
bool varyLayout(ScanBook& book, std::string_view name);

/// The names of the books that scanBook makes.
std::vector<std::string_view> scanBookNames();

/// One of the books, of about `pages` pages. Its articles come from the dictd dictionaries in `dictFolder`. They are
/// taken evenly from the whole alphabet, or, with `partSeed`, follow each other from a place that depends on it.
/// nullopt for an unknown name.
std::optional<ScanBook> scanBook(std::string_view name, const std::filesystem::path& dictFolder, std::size_t pages,
                                 std::optional<std::uint64_t> partSeed = std::nullopt);

} // namespace velmarin
