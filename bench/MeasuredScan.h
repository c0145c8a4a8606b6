#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "draft/Draft.h"
#include "making/IndexPlan.h"
#include "making/KeyRule.h"

namespace velmarin {

/// What is printed on a page.
struct TruePage {
    std::string page, number, first, last;
    std::vector<std::string> headwords = {};

    /// What a person who looks at the page enters.
    DraftPage asSet() const {
        const std::string& opening = first.empty() && !headwords.empty() ? headwords.front() : first;
        return {
            .page = page, .number = number, .first = opening, .last = last, .confidence = 100, .state = PageState::Set};
    }
};

/// A scan, its truth, and the order of its book.
struct Measured {
    std::vector<TruePage> pages;
    KeyRule rule;
    IndexOrder order;

    std::string wordOf(const std::string& headword) const { return indexSearchWord(rule.keyOf(headword), order); }
};

/// Reads what velmarin-make-scans tells about its scan: truth.tsv and headwords.tsv.
Measured measuredScan(const std::filesystem::path& scan, KeyRule rule, IndexOrder order);

} // namespace velmarin
