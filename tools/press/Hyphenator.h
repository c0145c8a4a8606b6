#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct _HyphenDict; // NOLINT(bugprone-reserved-identifier): the name in libhyphen

namespace velmarin {

/// Marks by soft hyphens where words may be divided, by the patterns of libhyphen.
class Hyphenator {
  public:
    /// `file` is a pattern file such as hyph_en_US.dic. An empty path divides no word. Throws std::runtime_error naming
    /// a file that cannot be read.
    explicit Hyphenator(const std::string& file);

    /// Takes and returns Pango markup. Headwords, which are bold, stay whole.
    std::string hyphenated(std::string_view markup) const;

  private:
    const std::string& divided(const std::string& word) const;

    std::shared_ptr<_HyphenDict> patterns_;
    mutable std::unordered_map<std::string, std::string> divided_; ///< the words that have occurred
};

} // namespace velmarin
