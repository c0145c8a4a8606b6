#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The words of a language, from lists with a word a line, to tell likely readings from others. Case, accents and
/// hyphens do not count. May be used by several threads.
class WordList {
  public:
    /// The lists that the system has for the languages, which are called as Tesseract calls them. They are in
    /// `folder`, and are called after the language, such as "american-english-huge". Empty if there are none.
    static WordList ofLanguages(const std::vector<std::string>& languages,
                                const FolderItem& folder = FolderItem("/usr/share/dict"));

    enum class Names { AreWords, AreLeftOut };
    /// Adds the lines of a list. Of a line of a headword index only what is before "__DLM__" counts. Names begin with a
    /// capital. What cannot be read is left out.
    void add(const FolderItem& file, Names names = Names::AreWords);

    bool has(std::string_view word) const;

  private:
    // Hashes, sorted. Of a million words, one has the hash of a wrong reading once in 10 million million readings.
    std::vector<std::uint64_t> words_ = {};
};

} // namespace velmarin
