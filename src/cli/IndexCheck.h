#pragma once

#include "cli/DictionaryCheck.h"
#include "text/SearchWord.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velmarin {

struct IndexSummary {
    std::uint64_t lines = 0;
    bool closed = false;
};

/// Checks an `ind`: its order, its closing entry, its encoding. Nothing where it cannot be read.
std::optional<IndexSummary> checkIndex(const FolderItem& ind, const IndexOrder& order, std::vector<Finding>& findings);

/// Whether a search word has the look of an entry that is there to sort after all others: it begins with a character of
/// the private-use areas or beyond, such as U+10FFFD, or repeats a single letter or digit at least twice, as "ZZZZ" and
/// "99-99" do.
bool isClosingWord(std::string_view searchWord);

} // namespace velmarin
