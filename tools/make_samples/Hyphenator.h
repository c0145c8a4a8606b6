#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// Finds where the words of a language may be divided, by patterns (F. M. Liang, "Word Hy-phen-a-tion by Com-put-er",
/// 1983). Not to be shared between threads.
class Hyphenator {
  public:
    /// The path of a pattern file (hyph_en_US.dic): its first line names its encoding, UTF-8 or ISO8859-1; the others
    /// are patterns, one a line, "hy3ph": an odd digit allows a division there, an even one forbids it, the greatest
    /// counts. Options are passed over, and so are patterns that change the spelling; a second level of patterns joins
    /// the first. An empty path divides no word. Throws std::runtime_error naming a file that cannot be read.
    explicit Hyphenator(const std::string& file);
    ~Hyphenator();
    Hyphenator(const Hyphenator&) = delete;
    Hyphenator& operator=(const Hyphenator&) = delete;

    /// The byte offsets in `word` (UTF-8; marks around it are passed over, and a dash parts two words) at which a
    /// hyphen may be put in, ascending.
    const std::vector<std::size_t>& places(std::string_view word);

  private:
    class Patterns;
    /// Read once in a process. They do not change, so threads share them.
    static std::shared_ptr<const Patterns> patternsOf(const std::string& file);

    /// Adds the places of a word without dashes, which stands at `offset`.
    void addPlaces(std::vector<std::size_t>& places, std::string_view word, std::size_t offset) const;

    std::shared_ptr<const Patterns> patterns_;
    std::unordered_map<std::string, std::vector<std::size_t>> known_;
};

} // namespace velmarin
