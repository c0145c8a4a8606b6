#pragma once

#include "cli/Finding.h"
#include "files/FolderItem.h"
#include "text/SearchWord.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velmarin {

struct IndexSummary {
    std::uint64_t lines = 0;
    bool hasClosingEntry = false;
};

/// Checks an `ind`: order, closing entry, encoding. Returns nullopt, with a finding, if it cannot be read.
std::optional<IndexSummary> checkIndex(const FolderItem& ind, const IndexOrder& order, Findings& findings);

/// Whether a search word looks like an entry that was added to sort after all others: it begins with a private-use
/// character or one beyond these, such as U+10FFFD, or consists of one letter or digit at least twice, as "ZZZZ" and
/// "99-99" do.
bool isClosingWord(std::string_view searchWord);

} // namespace velmarin
