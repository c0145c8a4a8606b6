#include "make_samples/Book.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// "key@page+errata" of each line.
std::string shown(const std::vector<IndexLine>& lines) {
    std::string text;
    for (const IndexLine& line : lines) {
        text += line.key + "@" + std::to_string(line.page);
        for (const std::string& file : line.errata)
            text += "+" + file;
        text += " ";
    }
    return text;
}

TEST(SortedLines, AreSortedBySearchWord) {
    const struct {
        const char* reason;
        IndexOrder order;
        std::vector<const char*> words;
        std::string sorted;
    } rows[] = {
        {"case and accents do not count", {}, {"zoo", "Éclair", "eclat", "abc"}, "abc@0 Éclair@0 eclat@0 zoo@0 "},
        {"letters outside the tables come last", {}, {"ångström", "zebra", "łan"}, "zebra@0 ångström@0 łan@0 "},
        {"old Spanish order", {true, false, ""}, {"chico", "cubo", "llano", "luz"}, "cubo@0 chico@0 luz@0 llano@0 "},
        {"j as i, v as u", {false, true, ""}, {"jam", "iam vero", "uxor", "vas"}, "jam@0 iam vero@0 vas@0 uxor@0 "},
        {"katakana as hiragana", {}, {"イヌ", "あめ", "いえ"}, "あめ@0 いえ@0 イヌ@0 "},
        {"numbers before names", {false, false, "000"}, {"Zinc", "010", "002"}, "002@0 010@0 Zinc@0 "},
        {"no words", {}, {}, ""},
    };
    for (const auto& row : rows) {
        std::vector<IndexLine> lines;
        for (const char* word : row.words)
            lines.push_back({word, ""});
        EXPECT_EQ(shown(sortedLines(lines, row.order)), row.sorted) << row.reason;
    }
}

TEST(SortedLines, OfEqualWordsOnSeveralPagesTheFirstStays) {
    const auto lines = sortedLines({{"set", "", 1}, {"Set", "", 1, {"e1"}}, {"SET", "", 2, {"e2"}}, {"a", "", 0}}, {});
    EXPECT_EQ(shown(lines), "a@0 set@1+e1+e2 Set@1+e1+e2 ") << "the errata of all with that word";
}

} // namespace
} // namespace velmarin
