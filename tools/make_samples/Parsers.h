#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// The articles of a dictionary in the dictd format (NAME.index and NAME.dict.dz or NAME.dict), each once, in the order
/// of the text and in UTF-8. Leaves out the articles in which the dictionary describes itself, damaged ones, and those
/// that abuse a people. Throws std::runtime_error naming a file that is missing or damaged.
std::vector<std::string> sourceArticles(const std::filesystem::path& folder, const std::string& name);

// Each parser takes one article of its source. The result has no key if the text is not an article of that kind.

/// The Devil's Dictionary: prose, verse with the lines of the source, and signatures.
Article parseDevilArticle(std::string_view text);

/// A chemical element: the key is its number in three digits, the note and further key its name.
Article parseElement(std::string_view text);

/// A FreeDict article: headword, /pronunciation/, <word class>, then one sense per line.
Article parseFreedictArticle(std::string_view text);

/// A Japanese FreeDict article: the key is the first reading in kana; the spellings in Chinese characters follow it in
/// brackets. No key unless the word is marked as common and has a reading.
Article parseJapaneseArticle(std::string_view text);

/// Chooses `most` of the articles evenly, if there are more.
void thinOut(std::vector<Article>& articles, std::size_t most);
/// Parses the articles of a source. Equal ones count once; of more than `most`, that many are chosen from A to Z.
std::vector<Article> articlesOf(const std::vector<std::string>& source, Article (*parse)(std::string_view),
                                std::size_t most = std::string::npos);

} // namespace velmarin
