#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Article.h"
#include "make_samples/SourceText.h"

namespace velmarin {

/// The Devil's Dictionary: prose, verse as it is lined in the source, and signatures. No key where `text` is no
/// article.
Article parseDevilArticle(std::string_view text);

/// One of the chemical elements.
struct ElementArticle {
    int number = 0; ///< 0 where `text` tells of no element
    std::string name;
    Article article;
};
ElementArticle parseElement(std::string_view text);

/// A FreeDict article: headword, /pronunciation/, <word class>, then senses, one a line. No key where there is none.
Article parseFreedictArticle(std::string_view text);

/// A Japanese FreeDict article: the key is the first reading in kana, the headings in Chinese characters follow it in
/// brackets. No key where the word is not marked as common, or has no reading.
Article parseJapaneseArticle(std::string_view text);

/// All articles of `source` that `parse` knows, equal ones once, at most `most` of them, evenly chosen.
std::vector<Article> articlesOf(const SourceText& source, Article (*parse)(std::string_view), std::size_t most);

} // namespace velmarin
