#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// Finds where the words of a language may be divided. Not to be shared between threads.
class Hyphenator {
  public:
    /// The path of a hyphenation dictionary (hyph_en_US.dic); an empty one divides no word. Throws std::runtime_error
    /// naming a file that cannot be read.
    explicit Hyphenator(const std::string& file);
    ~Hyphenator();
    Hyphenator(const Hyphenator&) = delete;
    Hyphenator& operator=(const Hyphenator&) = delete;

    /// The byte offsets in `word` (UTF-8; marks around it are passed over) at which a hyphen may be put in, ascending.
    const std::vector<std::size_t>& places(std::string_view word);

  private:
    struct Patterns;
    /// Read once in a process: that takes longer than setting a small book. They do not change, so threads share them.
    static std::shared_ptr<const Patterns> patternsOf(const std::string& file);

    std::shared_ptr<const Patterns> patterns_;
    std::unordered_map<std::string, std::vector<std::size_t>> known_;
};

} // namespace velmarin
