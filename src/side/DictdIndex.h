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

/// Where an entry stands in a dictionary's text, in bytes.
struct DictdPlace {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    friend auto operator<=>(const DictdPlace&, const DictdPlace&) = default;
};

/// The index of a dictionary in the dictd format (dictd(8), dictfmt(1)): a line for each word, "word TAB offset TAB
/// size", the numbers in base 64, sorted by the word as the flags say. Read in place by bisection, so that a question
/// reads some twenty blocks whatever the size of the index.
///
/// The order: letters, digits, blanks and bytes beyond ASCII count, all else is passed over, and ASCII capitals are
/// small. The flag "allchars" makes all bytes count, "case-sensitive" keeps capitals apart. With "utf8" the words are
/// stored in small letters. The flags are words of the index, "00-database-..." or "00database...".
class DictdIndex {
  public:
    static std::optional<DictdIndex> open(const FolderItem& file);

    /// The entries of `word` (UTF-8), in the order of the index, each once. The words with which a dictionary tells of
    /// itself are none.
    std::vector<DictdPlace> find(std::string_view word) const;
    /// All entries, each once, in the order of the text; also without those words.
    std::vector<DictdPlace> places() const;
    /// The entry with the dictionary's own name; nothing where it has none.
    std::optional<DictdPlace> nameEntry() const { return nameEntry_; }

    bool utf8() const { return utf8_; }
    FileStamp stamp() const { return file_.stamp(); }

    /// A word as the order of this index sees it.
    std::string key(std::string_view word) const;

    /// Lines beyond this length are damage: nothing is found at or behind them.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 14;

  private:
    explicit DictdIndex(ReadOnlyFile file) : file_(std::move(file)), size_(file_.stamp().size) {}

    struct Line {
        std::string text;
        std::uint64_t end = 0;
    };
    std::optional<Line> lineAt(std::uint64_t begin) const;
    std::uint64_t lineStartBehind(std::uint64_t position, std::uint64_t limit) const;
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
