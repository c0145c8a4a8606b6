#pragma once

#include "draft/Draft.h"
#include "making/IndexPlan.h"
#include "making/SeparatedValues.h"

#include <charconv>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace velmarin::bench {

/// A page as velmarin-make-scans has printed it.
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

/// The true pages of a scan, and the order of its book.
struct Measured {
    std::vector<TruePage> pages;
    KeyRule rule;
    IndexOrder order;

    std::string wordOf(const std::string& headword) const { return indexSearchWord(rule.keyOf(headword), order); }
};

inline std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Reads truth.tsv and headwords.tsv of the folder `scan`.
inline Measured measuredScan(const std::filesystem::path& scan, KeyRule rule, const IndexOrder& order) {
    Measured made{.pages = {}, .rule = std::move(rule), .order = order};
    const auto truth = SeparatedValues::parse(contents(scan / "truth.tsv"));
    for (std::size_t i = 0; i < truth.rowCount(); ++i) {
        const auto field = [&](const char* name) { return std::string(truth.field(i, name)); };
        made.pages.push_back({field("page"), field("number"), field("first"), field("last")});
    }
    const auto headwords = SeparatedValues::parse(contents(scan / "headwords.tsv"));
    for (std::size_t i = 0; i < headwords.rowCount(); ++i) {
        std::size_t row = 0;
        std::from_chars(headwords.field(i, "row").begin(), headwords.field(i, "row").end(), row);
        made.pages.at(row - 1).headwords.emplace_back(headwords.field(i, "headword"));
    }
    return made;
}

} // namespace velmarin::bench
