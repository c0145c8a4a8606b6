#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// Replaces accented and special letters written as "['e]", "[=a]" or "[ae]" by the letters themselves. Any other text
/// in brackets stays.
std::string gcideLetters(std::string_view text);

/// The parts of one article of the Collaborative International Dictionary of English.
struct GcideArticle {
    std::string headword;
    std::string divided;       ///< with accents and division points, as printed
    std::string pronunciation; ///< may be empty
    std::string wordClass;
    std::string etymology; ///< with its brackets; may be empty
    struct Block {
        enum class Kind { Sense, Quotation, Synonyms, Note, Phrase } kind = Kind::Sense;
        std::string text;
    };
    std::vector<Block> blocks;
    std::size_t length = 0; ///< bytes of the source
};

/// The headword is empty if `text` does not begin as an article does.
GcideArticle parseGcideArticle(std::string_view text);

/// The words of 1913 from A to Z, shortened: the longest articles, up to `bytes` of markup. Some of each letter, and
/// the one of the word `alwaysInFull`, have the whole article as a supplement. `gcide` has the articles of the
/// Collaborative International Dictionary of English.
std::vector<Article> websterArticles(const std::vector<std::string>& gcide, std::size_t bytes,
                                     const std::string& alwaysInFull);

} // namespace velmarin
