#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Article.h"
#include "make_samples/SourceText.h"

namespace velmarin {

/// Letters with accents and special letters written as "['e]", "[=a]" or "[ae]" made into the letters themselves. What
/// stands between brackets and is no such sign is left alone.
std::string gcideLetters(std::string_view text);

/// One article of the Collaborative International Dictionary of English, taken apart.
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
    bool of1913 = false;
    std::size_t length = 0; ///< bytes of the source
};

/// No headword where `text` does not begin as an article does.
GcideArticle parseGcideArticle(std::string_view text);

/// The words of 1913 from A to Z in a shorter form: those with most to say, until `bytes` of text are reached. About
/// three words for each letter, and each of `alwaysInFull`, have their articles in full as a supplement.
std::vector<Article> websterArticles(const SourceText& gcide, std::size_t bytes,
                                     const std::vector<std::string>& alwaysInFull);

} // namespace velmarin
