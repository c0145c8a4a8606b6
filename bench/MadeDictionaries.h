#pragma once

#include "text/SearchWord.h"
#include "text/Utf8.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <stdlib.h>

namespace velmarin::bench {

/// A folder below that of temporary files, removed at the end.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "velmarin_bench-XXXXXX").native();
        path_ = mkdtemp(name.data());
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// `count` random words, as an index has them.
inline std::vector<std::string> sortedWords(std::size_t count, const std::vector<std::string>& letters,
                                            std::size_t shortest, std::size_t longest, unsigned seed = 1) {
    std::mt19937 engine(seed);
    std::uniform_int_distribution<std::size_t> length(shortest, longest), letter(0, letters.size() - 1);
    std::vector<std::string> words(count);
    for (std::string& word : words)
        for (std::size_t left = length(engine); left > 0; --left)
            word += letters[letter(engine)];
    std::vector<std::pair<std::string, std::string>> keyed;
    for (std::string& word : words)
        keyed.emplace_back(mSub_MakeSearchWord(word), std::move(word));
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), words.begin(), [](auto& pair) { return std::move(pair.second); });
    return words;
}

inline std::vector<std::string> letters(char32_t first, char32_t last) {
    std::vector<std::string> all;
    for (char32_t c = first; c <= last; ++c)
        appendUtf8(all.emplace_back(), c);
    return all;
}

inline constexpr std::size_t kLinesAPage = 40;

/// A dictionary without pictures. `afterWord` follows the word in each line of `ind`.
inline void writeDictionary(const std::filesystem::path& folder, const std::vector<std::string>& words,
                            const char* afterWord) {
    std::filesystem::create_directories(folder / "mImg");
    std::ofstream(folder / "FW");
    std::ofstream ind(folder / "ind"), txt(folder / "txt");
    for (std::size_t i = 0; i < words.size(); ++i) {
        ind << words[i] << afterWord << '\n';
        txt << words[i] << " <@_page" << i / kLinesAPage << ".tif_>\n";
    }
    std::ofstream pages(folder / "mImg" / "ImageIndex");
    pages << (words.size() - 1) / kLinesAPage << '\n';
    for (std::size_t page = 0; page * kLinesAPage < words.size(); ++page)
        pages << "page" << page << ".tif\n";
}

} // namespace velmarin::bench
