#include "make_samples/Book.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace velmarin {
namespace {

std::vector<std::string> keys(const std::vector<IndexLine>& lines) {
    std::vector<std::string> found;
    for (const IndexLine& line : lines)
        found.push_back(line.key);
    return found;
}

const std::string closing = "\U0010FFFD";

TEST(IndexLines, AreSortedBySearchWordWithAClosingLine) {
    struct Row {
        const char* reason;
        IndexOrder order;
        std::vector<const char*> words;
        std::vector<std::string> expected;
    };
    const Row rows[] = {
        {"case and accents do not count", {}, {"zoo", "Éclair", "eclat", "abc"}, {"abc", "Éclair", "eclat", "zoo"}},
        {"letters outside the tables come last", {}, {"ångström", "zebra", "łan"}, {"zebra", "ångström", "łan"}},
        {"old Spanish order", {true, false, ""}, {"chico", "cubo", "llano", "luz"}, {"cubo", "chico", "luz", "llano"}},
        {"j as i, v as u", {false, true, ""}, {"jam", "iam vero", "uxor", "vas"}, {"jam", "iam vero", "vas", "uxor"}},
        {"katakana as hiragana", {}, {"イヌ", "あめ", "いえ"}, {"あめ", "いえ", "イヌ"}},
        {"numbers before names", {false, false, "000"}, {"Zinc", "010", "002"}, {"002", "010", "Zinc"}},
        {"no words", {}, {}, {}},
    };
    for (const Row& row : rows) {
        auto expected = row.expected;
        if (!expected.empty())
            expected.push_back(closing);
        std::vector<IndexLine> lines;
        for (const char* word : row.words)
            lines.push_back({word, "", "p.tif", {}});
        EXPECT_EQ(keys(indexLines(lines, row.order)), expected) << row.reason;
    }
}

TEST(IndexLines, OfEqualWordsOnSeveralPagesTheFirstStays) {
    const auto lines = indexLines({{"set", "n.", "p1.tif", {}},
                                   {"Set", "v.", "p1.tif", {"e1.tif"}},
                                   {"SET", "a.", "p2.tif", {"e2.tif"}},
                                   {"a", "", "p0.tif", {}}},
                                  {});
    EXPECT_EQ(keys(lines), (std::vector<std::string>{"a", "set", "Set", closing}));
    EXPECT_EQ(lines[1].extraPages, (std::vector<std::string>{"e1.tif", "e2.tif"})) << "of all with that word";
    EXPECT_EQ(lines[2].extraPages, lines[1].extraPages);
    EXPECT_EQ(lines.back().page, "p1.tif") << "the closing line has the last page";
}

TEST(WriteDictionary, FilesAreAsReadersExpectThem) {
    const test::TempFolder folder;
    std::filesystem::create_directory(folder.path() / "mImg");
    Book book;
    book.order = {false, true, "000"};
    book.independent = true;
    writeDictionary(folder.path(),
                    {{"a", "n.", "p1.png", {"e1.png", "e2.png"}}, {"b", "", "p2.png", {}}, {"c", "", "p2.png", {}}},
                    {{"p1.png", "i"}, {"p2.png", "1"}}, book);
    EXPECT_EQ(folder.read("FW"), "");
    EXPECT_EQ(folder.read("IJUV"), "");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Spanish"));
    EXPECT_EQ(folder.read("ind"), "a__DLM__n.\nb\nc\n");
    EXPECT_EQ(folder.read("txt"), "<@_p1.png_> in full: <^_e1.png_> <^_e2.png_>\nb <@_p2.png_>\n<@_p2.png_>\n");
    EXPECT_EQ(folder.read("Format"), "000\ntrue\n");
    EXPECT_EQ(folder.read("mImg/ImageIndex2"), "1\np1.png\ti\np2.png\t1\n");
}

} // namespace
} // namespace velmarin
