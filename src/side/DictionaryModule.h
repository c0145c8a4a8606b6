#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class ProgressPort;

/// The files of a user dictionary.
inline constexpr std::string_view kTextFileName = "Text.txt";
inline constexpr std::string_view kIndexFileName = "Index.txt";

/// Searches and indexes user dictionaries, which are text dictionaries that a user makes from a file with one entry per
/// line, "headword, TAB, meaning". Each is a folder with `Text.txt`, the entries, and `Index.txt`, which has a line for
/// each entry: its search word, TAB, the number of its line in `Text.txt` from 0.
///
/// Each side window has its own module, so that a look-up in one does not change the results of another.
class DictionaryModule {
  public:
    /// Called for each line; may let events run.
    using Yield = std::function<void()>;

    /// Options of m__SubMakeSearchWord. This program leaves both off.
    bool pIJUV = false;
    bool pSpanish = false;
    /// What the last mSearch found.
    std::vector<std::string> pResult;

    /// The search word of a headword: the part before its first "__NUM__" (ignoring case), folded as all search words
    /// are.
    std::string m__SubMakeSearchWord(std::string_view word) const;
    std::string m__SubIJUV(std::string_view word) const;
    /// `back` 0 encodes ch and ll; any other value restores them.
    std::string m__SubSpanish(std::string_view word, int back) const;

    /// Writes the index of `source` to `index`, completely or not at all. Does nothing if one of them is nil. Raises
    /// NilObjectException if the source cannot be read or the index cannot be written.
    void mDic_MakeIndex(const FolderItem& source, const FolderItem& index, ProgressPort& progress) const;

    /// Looks `word` up. Sets pResult to the lines of `Text.txt` whose search words match, in their order, or with
    /// `indexOnly` to their numbers as the index writes them. False if there are none. Raises NilObjectException if
    /// `Index.txt` cannot be read.
    bool mSearch(const FolderItem& dictionary, std::string_view word, int mode, bool indexOnly,
                 const Yield& yield = {});

    /// Modes: 0 begins with, 1 ends with, 2 equals, 3 contains, 4 matches as a pattern; all ignore case. Any other mode
    /// matches nothing. mSearch passes the pattern folded and in capitals, as every search word, so that `\d` is `\D`.
    static bool m__SubMatch(std::string_view indexWord, std::string_view searchWord, int mode);

    /// Appends the lines with these numbers (from 0) to pResult, in the order of the file, each once. If the file
    /// cannot be opened, the user gets a message.
    void m__SubGetText(const FolderItem& textFile, std::vector<std::int32_t> lineNumbers, const Yield& yield = {});
};

} // namespace velmarin
