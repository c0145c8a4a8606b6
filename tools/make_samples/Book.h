#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "make_samples/Article.h"
#include "make_samples/Design.h"
#include "make_samples/DictionaryWriter.h"

namespace velmarin {

/// All that is needed to make one dictionary.
struct Book {
    Title title;
    Design design;
    DictionaryShape shape;
    std::vector<Article> articles;
    /// Keys beside those of the articles, each with the number of an article: an element's name beside its number.
    std::vector<std::pair<std::string, std::size_t>> furtherKeys;
};

struct BookResult {
    std::size_t pages = 0;
    std::size_t entries = 0;
    std::size_t extraPages = 0;
};

/// Makes the dictionary in `folder`, which does not exist yet. The articles stand in the order of their search words.
BookResult makeBook(Book book, const std::filesystem::path& folder, unsigned threads);

} // namespace velmarin
