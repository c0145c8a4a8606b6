#pragma once

#include "book/PageSpan.h"
#include "making/About.h"
#include "making/KeyRule.h"
#include "text/SearchWord.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What is to be done with a scan to get the pages of the book.
struct PageSettings {
    int dpi = 300;            ///< of pages that are rendered
    bool spread = false;      ///< each picture has two pages, and is cut in the middle
    bool rightToLeft = false; ///< of the two, the right one comes first
    std::vector<TurnedPages> turned = {};

    friend bool operator==(const PageSettings&, const PageSettings&) = default;
};

/// How a book is read and what is made of it.
struct BookSettings {
    bool leavesOut(int page) const;

    std::vector<std::string> languages = {"eng"}; ///< as Tesseract calls them
    /// Files with words that the book may have (reading/WordList.h), beside the lists that the system has.
    std::vector<std::string> wordLists = {};
    PageSettings pages = {};
    std::vector<PageSpan> leftOut = {};
    std::vector<GivenNumber> numbers = {};
    std::string ignore = {}, alike = {}; ///< KeyRule::parse
    IndexOrder order = {};
    bool independent = false;
    std::string extraPages = {}; ///< the folder of the errata of the draft; empty for none
    About about = {};

    /// What the pictures in the folder of the book were taken out of, and how: if one of the two is another now, they
    /// have to be taken out again.
    std::string takenFrom = {};
    PageSettings takenAs = {};
};

/// How the book sorts its headwords. Settings that cannot be parsed give the plain rule.
KeyRule keyRuleOf(const BookSettings& settings);

/// The settings as JSON, and back. nullopt for what is not the settings of a book.
std::string formatBookSettings(const BookSettings& settings);
std::optional<BookSettings> parseBookSettings(std::string_view json);

} // namespace velmarin
