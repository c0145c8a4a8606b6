#include "make_samples/Book.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "support/Tree.h"

namespace velmarin {
namespace {

/// "key@page+extra pages" of each line.
std::string shown(const std::vector<IndexLine>& lines) {
    std::string text;
    for (const IndexLine& line : lines) {
        text += line.key + "@" + line.page;
        for (const std::string& extra : line.extraPages)
            text += "+" + extra;
        text += " ";
    }
    return text;
}

TEST(IndexLines, AreSortedBySearchWordWithAClosingLine) {
    const struct {
        const char* reason;
        IndexOrder order;
        std::vector<const char*> words;
        std::string sorted;
    } rows[] = {
        {"case and accents do not count", {}, {"zoo", "Éclair", "eclat", "abc"}, "abc@ Éclair@ eclat@ zoo@ "},
        {"letters outside the tables come last", {}, {"ångström", "zebra", "łan"}, "zebra@ ångström@ łan@ "},
        {"old Spanish order", {true, false, ""}, {"chico", "cubo", "llano", "luz"}, "cubo@ chico@ luz@ llano@ "},
        {"j as i, v as u", {false, true, ""}, {"jam", "iam vero", "uxor", "vas"}, "jam@ iam vero@ vas@ uxor@ "},
        {"katakana as hiragana", {}, {"イヌ", "あめ", "いえ"}, "あめ@ いえ@ イヌ@ "},
        {"numbers before names", {false, false, "000"}, {"Zinc", "010", "002"}, "002@ 010@ Zinc@ "},
        {"no words", {}, {}, ""},
    };
    for (const auto& row : rows) {
        std::vector<IndexLine> lines;
        for (const char* word : row.words)
            lines.push_back({word, "", "", {}});
        EXPECT_EQ(shown(indexLines(lines, row.order)), row.sorted + (lines.empty() ? "" : "\U0010FFFD@ "))
            << row.reason;
    }
}

TEST(IndexLines, OfEqualWordsOnSeveralPagesTheFirstStays) {
    const auto lines = indexLines(
        {{"set", "", "p1", {}}, {"Set", "", "p1", {"e1"}}, {"SET", "", "p2", {"e2"}}, {"a", "", "p0", {}}}, {});
    EXPECT_EQ(shown(lines), "a@p0 set@p1+e1+e2 Set@p1+e1+e2 \U0010FFFD@p1 ") << "extra pages of all with that word";
}

TEST(WriteDictionary, FilesAreAsReadersExpectThem) {
    const test::TempFolder folder;
    std::filesystem::create_directory(folder.at("mImg"));
    Book book;
    book.order = {false, true, "000"};
    book.independent = true;
    writeDictionary(folder.path(),
                    {{"a", "n.", "p1.png", {"e1.png", "e2.png"}}, {"b", "", "p2.png", {}}, {"c", "", "p2.png", {}}},
                    {{"p1.png", "i"}, {"p2.png", "1"}}, book);
    EXPECT_EQ(test::filesOf(folder.path()),
              "FW= Format=000\ntrue\n IJUV= ind=a__DLM__n.\nb\nc\n mImg/ImageIndex2=1\np1.png\ti\np2.png\t1\n "
              "txt=<@_p1.png_> in full: <^_e1.png_> <^_e2.png_>\nb <@_p2.png_>\n<@_p2.png_>\n");
}

} // namespace
} // namespace velmarin
