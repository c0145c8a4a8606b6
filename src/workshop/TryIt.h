#pragma once

#include "draft/Draft.h"
#include "making/BookTable.h"
#include "making/IndexPlan.h"
#include "store/HeadwordIndex.h"
#include "text/SearchWord.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace velmarin {

/// Where a word as typed leads.
struct TriedWord {
    std::string file = {};   ///< the page that it opens; empty if it opens none
    std::string number = {}; ///< printed on that page
    bool exact = false;      ///< it is a headword
    /// The nearest headwords at or before it and after it; empty at the ends.
    std::string before = {}, after = {};
};

/// The same in words: "“abby” opens page 12 (p012.tif). It comes between “abbey” and “abode”."
std::string sentenceOf(std::string_view word, const TriedWord& tried);

/// A dictionary that is not made yet, to be searched as Velmarin would search it. A question takes microseconds.
class TryIt {
  public:
    TryIt() = default;
    TryIt(const std::vector<BookEntry>& entries, IndexPlan plan, std::vector<BookPage> pages, IndexOrder order);

    TriedWord find(std::string_view word) const;

  private:
    std::vector<IndexLine> lines_;
    std::vector<BookPage> pages_;
    HeadwordIndex words_;
    std::unordered_set<std::string> headwords_; ///< as they are searched for
    IndexOrder order_;
};

/// The dictionary that a draft would make.
TryIt tryDraft(const Draft& draft, const KeyRule& rule, const IndexOrder& order);

class DictionaryText;
struct PageList;
class ImageDictionaryMap;

/// The same for a dictionary that exists.
TriedWord tryIn(const DictionaryText& text, const PageList& list, const ImageDictionaryMap& pages,
                std::string_view word);

} // namespace velmarin
