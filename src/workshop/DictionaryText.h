#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"
#include "store/HeadwordIndex.h"
#include "text/SearchWord.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// `ind` and `txt` of a dictionary, to be changed line by line. Lines are read as a search reads them, and those that
/// are not changed keep every byte, their ends included. A copy shares the bytes that were read.
///
/// A line is one of `ind` and the line of `txt` with the same number, counted from 0.
class DictionaryText {
  public:
    /// Reads a dictionary. Fails if it is a link, if a member is missing or cannot be read, or if it is too large.
    static Result read(const FolderItem& dictionary, DictionaryText& text);

    const IndexOrder& order() const { return order_; }
    /// How many lines `ind` has. The last one is never found.
    std::size_t size() const { return ind_.lines.size(); }
    /// The part before "__DLM__".
    std::string_view headword(std::size_t line) const;
    /// The name in the page mark of `txt`; empty if there is none.
    std::string page(std::size_t line) const;

    /// The number of lines before the first one that sorts after a word as typed: the hit is the line before.
    std::size_t placeOf(std::string_view word) const;
    /// The last line with exactly this headword: the one that a search for it reads.
    std::optional<std::size_t> lineOf(std::string_view headword) const;
    /// Whether a line's headword is a word as typed.
    bool isFoundBy(std::size_t line, std::string_view word) const;

    /// Where a new headword sorts: the line before which it belongs.
    std::size_t placeOfNew(std::string_view headword) const;
    /// Whether there is a line there, and `txt` has it too: only such lines are changed, and only before them is one
    /// added.
    bool isWhole(std::size_t line) const { return line < ind_.lines.size() && line < txt_.lines.size(); }

    void setPage(std::size_t line, std::string_view page);
    /// Adds a line where its headword sorts.
    void insert(std::string_view headword, std::string_view note, std::string_view page);
    /// Gives a line another headword and moves it, if it no longer sorts between its neighbours, to where it does. It
    /// keeps its note and its line of `txt`.
    void rename(std::size_t line, std::string_view headword);

    std::string indBytes() const { return ind_.bytes(); }
    std::string txtBytes() const { return txt_.bytes(); }
    /// Whether `ind` and `txt` on the disk are still as they were read.
    bool isAsRead(const FolderItem& dictionary) const;

  private:
    struct Line {
        std::string_view text, end;
    };
    /// The lines of one file. Their bytes are in `texts`, of which the first is the file as it was read.
    struct File {
        std::vector<Line> lines;
        std::vector<std::shared_ptr<const std::string>> texts;
        std::string_view mark; ///< the byte-order mark

        void split(std::string bytes);
        std::string_view keep(std::string text);
        void insert(std::size_t line, std::string text);
        std::string bytes() const;
    };

    File ind_, txt_;
    HeadwordIndex words_;
    IndexOrder order_;
};

} // namespace velmarin
