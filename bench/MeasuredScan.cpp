#include "MeasuredScan.h"

#include <charconv>
#include <fstream>
#include <iterator>
#include <utility>

#include "making/SeparatedValues.h"

namespace velmarin {

namespace fs = std::filesystem;

namespace {

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

Measured measuredScan(const fs::path& scan, KeyRule rule, IndexOrder order) {
    Measured made{.pages = {}, .rule = std::move(rule), .order = std::move(order)};
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

} // namespace velmarin
