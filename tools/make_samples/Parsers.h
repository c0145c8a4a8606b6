#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Book.h"
#include "make_samples/SourceText.h"

namespace velmarin {

/// Letters with accents and special letters written as "['e]", "[=a]" or "[ae]" made into the letters themselves. What
/// is between brackets and is no such sign is left alone.
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
    std::size_t length = 0; ///< bytes of the source
};

/// No headword where `text` does not begin as an article does.
GcideArticle parseGcideArticle(std::string_view text);

/// The words of 1913 from A to Z in a shorter form: those with most to say, until `bytes` of markup are reached. Some
/// for each letter, and `alwaysInFull`, have their articles in full as a supplement.
std::vector<Article> websterArticles(const SourceText& gcide, std::size_t bytes, const std::string& alwaysInFull);

/// The Devil's Dictionary: prose, verse as it is lined in the source, and signatures. No key where `text` is no
/// article.
Article parseDevilArticle(std::string_view text);

/// One of the chemical elements: the key is its number in three digits, the note its name. No key for anything else.
Article parseElement(std::string_view text);

/// A FreeDict article: headword, /pronunciation/, <word class>, then senses, one a line. No key where there is none.
Article parseFreedictArticle(std::string_view text);

/// A Japanese FreeDict article: the key is the first reading in kana, the headings in Chinese characters follow it in
/// brackets. No key where the word is not marked as common, or has no reading.
Article parseJapaneseArticle(std::string_view text);

/// All articles of `source` that `parse` knows, equal ones once, at most `most` of them, evenly chosen.
std::vector<Article> articlesOf(const SourceText& source, Article (*parse)(std::string_view), std::size_t most);

} // namespace velmarin
