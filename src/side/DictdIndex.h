#pragma once

#include "files/FolderItem.h"
#include "files/ReadOnlyFile.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The place of an entry in a dictionary's text, in bytes.
struct DictdPlace {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    friend auto operator<=>(const DictdPlace&, const DictdPlace&) = default;
};

/// The index of a dictionary in the dictd format (dictd(8), dictfmt(1)). It has a line for each word, "word TAB offset
/// TAB size" with the numbers in base 64, sorted by the word. It is read in place by bisection: a look-up reads about
/// twenty blocks in an index of any size.
///
/// The order compares letters, digits, blanks and bytes beyond ASCII, ignores all other characters, and treats ASCII
/// capitals as small letters. With the flag "allchars" all bytes count, with "case-sensitive" capitals differ. With
/// "utf8" the words are stored in small letters. Flags are words of the index, "00-database-..." or "00database...".
class DictdIndex {
  public:
    static std::optional<DictdIndex> open(const FolderItem& file);

    /// The entries of `word` (UTF-8), in the order of the index, each once. Words that describe the dictionary itself
    /// ("00-database-...") have none.
    std::vector<DictdPlace> find(std::string_view word) const;
    /// All entries except the 00-database ones, each once, in the order of the text.
    std::vector<DictdPlace> places() const;
    /// The entry with the name of the dictionary; nullopt if it has none.
    std::optional<DictdPlace> nameEntry() const { return nameEntry_; }

    bool utf8() const { return utf8_; }

    /// The form of a word that this index is sorted by.
    std::string key(std::string_view word) const;

    /// A longer line is damage: nothing is found in it or after it.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 14;

  private:
    explicit DictdIndex(ReadOnlyFile file) : file_(std::move(file)), size_(file_.stamp().size) {}

    struct Line {
        std::string text;
        std::uint64_t end = 0;
    };
    std::optional<Line> lineAt(std::uint64_t begin) const;
    std::uint64_t lineStartAfter(std::uint64_t position, std::uint64_t limit) const;
    std::uint64_t lowerBound(std::string_view key) const;
    void appendEntries(std::string_view word, std::vector<DictdPlace>& places) const;
    void readFlags();
    std::vector<std::string> spellings(std::string_view word) const;

    ReadOnlyFile file_;
    std::uint64_t size_ = 0;
    bool allChars_ = false;
    bool caseSensitive_ = false;
    bool utf8_ = false;
    std::optional<DictdPlace> nameEntry_;
};

} // namespace velmarin
