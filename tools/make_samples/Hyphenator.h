#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct _HyphenDict;

namespace velmarin {

/// Puts soft hyphens where words may be divided, by the patterns of libhyphen.
class Hyphenator {
  public:
    /// The path of a pattern file (hyph_en_US.dic) in UTF-8 or ISO 8859-1. An empty path divides no word. Throws
    /// std::runtime_error naming a file that cannot be read.
    explicit Hyphenator(const std::string& file);

    /// `markup` is Pango's; headwords, which are bold, are left whole.
    std::string hyphenated(std::string_view markup);

  private:
    std::string divided(std::string_view word) const;

    std::shared_ptr<_HyphenDict> patterns_;
    std::unordered_map<std::string, std::string> known_;
};

} // namespace velmarin
