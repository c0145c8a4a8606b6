#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class ProgressPort;

/// User dictionaries: text dictionaries that a user has made from a file of one entry a line, "head word, TAB,
/// meaning". One is a folder that holds `Text.txt` (the entries) and `Index.txt` (a line for each of them: search word,
/// TAB, its line in `Text.txt` from 0).
///
/// Each side window has a module of its own, so that the results of one are safe from the look-ups of another.
class DictionaryModule {
  public:
    /// Called at each line of a loop; may let events run.
    using Yield = std::function<void()>;

    /// Switches of the search word, never set.
    bool pIJUV = false;
    bool pSpanish = false;
    /// What the last mSearch found.
    std::vector<std::string> pResult;

    /// The normal form of a head word: what stands before its first "__NUM__", whatever the case of the
    /// marker, in the common normal form.
    std::string m__SubMakeSearchWord(std::string_view word) const;
    std::string m__SubIJUV(std::string_view word) const;
    std::string m__SubSpanish(std::string_view word, int back) const;

    /// Writes the index of `source` to `index`, whole or not at all. Nothing happens where one of them is nil. Raises
    /// NilObjectException where the source cannot be read or the index not be written.
    void mDic_MakeIndex(const FolderItem& source, const FolderItem& index, ProgressPort& progress) const;

    /// Looks `word` up: the lines of `Text.txt`, in their order, whose search words match, or with `indexOnly` their
    /// numbers as they stand in the index. False where there is none. Raises NilObjectException where `Index.txt`
    /// cannot be read.
    bool mSearch(const FolderItem& dictionary, std::string_view word, int mode, bool indexOnly,
                 const Yield& yield = {});

    /// Modes: 0 begins with, 1 ends with, 2 is, 3 holds, 4 matches as a pattern; case is ignored in all. Any other
    /// matches nothing.
    static bool m__SubMatch(std::string_view indexWord, std::string_view searchWord, int mode);

    /// Appends the lines of these numbers (from 0) to pResult, in the order of the file, each once. A file that cannot
    /// be opened is told to the user.
    void m__SubGetText(const FolderItem& textFile, std::vector<std::int32_t> lineNumbers, const Yield& yield = {});
};

} // namespace velmarin
