#include "reading/WordList.h"

#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "reading/HeadParts.h"
#include "text/NilObjectException.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace velmarin {

namespace {

/// How a list of a language is called, and whether its words begin with capitals that are not names. Names are
/// left out: few dictionaries have them, and many are a headword but for a letter.
struct ListName {
    std::string_view language, name;
    bool capitals = false;
};
constexpr std::array<ListName, 16> kListsOf{{{"eng", "american-english"},
                                             {"eng", "british-english"},
                                             {"eng", "canadian-english"},
                                             {"fra", "french"},
                                             {"deu", "ngerman", true},
                                             {"deu", "ogerman", true},
                                             {"frk", "ogerman", true},
                                             {"ita", "italian"},
                                             {"spa", "spanish"},
                                             {"por", "portuguese"},
                                             {"nld", "dutch"},
                                             {"dan", "danish"},
                                             {"swe", "swedish"},
                                             {"nor", "bokmaal"},
                                             {"pol", "polish"},
                                             {"cat", "catala"}}};

bool isPlain(std::string_view word) {
    return std::ranges::all_of(word, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

constexpr std::uint64_t kHashOfNothing = 0xCBF29CE484222325U;

/// FNV-1a (Fowler, Noll, Vo, 1991), 64 bits, of the letters of a word.
std::uint64_t hashOf(std::string_view word) {
    std::uint64_t hash = kHashOfNothing;
    const auto add = [&](char c) { hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U; };
    if (!isPlain(word)) {
        for (const char c : lettersOf(word))
            add(c);
        return hash;
    }
    for (const char c : word) {
        if (c >= 'a' && c <= 'z')
            add(static_cast<char>(c - 'a' + 'A'));
        else if (c >= 'A' && c <= 'Z')
            add(c);
    }
    return hash;
}

} // namespace

WordList WordList::ofLanguages(const std::vector<std::string>& languages, const FolderItem& folder) {
    WordList words;
    std::error_code error;
    for (std::filesystem::directory_iterator file(folder.path(), error), end; !error && file != end;
         file.increment(error)) {
        const std::string name = file->path().filename();
        const auto list = std::ranges::find_if(kListsOf, [&](const ListName& row) {
            return name.starts_with(row.name) && std::ranges::find(languages, row.language) != languages.end();
        });
        if (list != kListsOf.end())
            words.add(FolderItem(file->path()), list->capitals ? Names::AreWords : Names::AreLeftOut);
    }
    return words;
}

void WordList::add(const FolderItem& file, Names names) {
    const auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return;
    try {
        LineScanner lines(*opened);
        for (std::string_view line; lines.next(line);) {
            const bool capital = !line.empty() && line.front() >= 'A' && line.front() <= 'Z';
            if (!capital || names == Names::AreWords)
                words_.push_back(hashOf(line.substr(0, line.find("__DLM__"))));
        }
    } catch (const NilObjectException&) {
        // The disk failed. The words before that place are of use.
    }
    std::ranges::sort(words_);
    const auto again = std::ranges::unique(words_);
    words_.erase(again.begin(), again.end());
}

bool WordList::has(std::string_view word) const {
    const std::uint64_t hash = hashOf(word);
    return hash != kHashOfNothing && std::ranges::binary_search(words_, hash);
}

} // namespace velmarin
