#include "making/BookTable.h"
#include "making/PrintedNumbers.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(PrintedNumbers, CountOn) {
    const struct {
        const char *number, *next; ///< null for none
    } cases[] = {
        {"9", "10"},   {"099", "100"},   {"A9", "A10"},          {"ix", "x"},    {"XIX", "XX"}, {"iiii", nullptr},
        {"", nullptr}, {"12a", nullptr}, {"mmmcmxcix", nullptr}, {"Xi", nullptr}};
    for (const auto& c : cases)
        EXPECT_EQ(nextPrintedNumber(c.number), c.next == nullptr ? std::nullopt : std::optional<std::string>(c.next));
    EXPECT_EQ(filledPrintedNumbers({"", "xi", "", "-", "", "1", "", "plate", "", "9", ""}),
              (std::vector<std::string>{"", "xi", "xii", "", "", "1", "2", "plate", "", "9", "10"}));
}

TEST(SeparatedValues, ReadsWhatSpreadsheetsSave) {
    const struct {
        const char *what, *text, *field;
        std::size_t number;
    } cases[] = {
        {"TAB", "Page\tfirst\np1\tone, two; three\n", "one, two; three", 2},
        {"semicolons, CR LF, byte-order mark",
         "\xEF\xBB\xBF"
         "page;first\r\n\r\np1; a \r\n",
         "a", 3},
        {"commas, CR, quotes", "\"page\",\"first\"\rp1,\"say \"\"a, b\"\"\nc\"\r", "say \"a, b\"\nc", 2},
        {"no line end, further fields", "page,first\n,\np1,a,b", "a", 3},
        {"short row", "page,first\np1\n", "", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const SeparatedValues table = SeparatedValues::parse(c.text);
        ASSERT_EQ(table.rowCount(), 1U);
        EXPECT_EQ(table.field(0, "page"), "p1");
        EXPECT_EQ(table.field(0, "first"), c.field);
        EXPECT_EQ(table.numberOf(0), c.number);
        EXPECT_EQ(table.field(0, "last"), "");
    }
    EXPECT_EQ(SeparatedValues::parse("").rowCount(), 0U);
    EXPECT_TRUE(SeparatedValues::parse("page\n\"a\"").isWhole());
    EXPECT_FALSE(SeparatedValues::parse("page\n\"a\nb\n").isWhole());
}

TEST(BookTable, FindsPagesAndTakesWhatIsKnownOfThem) {
    const SeparatedValues table =
        SeparatedValues::parse("page,number,first,last,headword,errata\n"
                               "B,7,bb,bd,,e1.tif; e2.tif ;e4.tif\n" // a name without extension
                               "b.tif,,,,bc,e3.tif\n"
                               "a.tif,,aa,bb,,\n"
                               "8,,bd,bd,,\n" // a printed number: an entry runs on
                               "d.tif,,bd,be,,\n"
                               "x,,bz,,,\n");
    const BookTable book = readBookTable(table, {{"a.tif"}, {"b.tif"}, {"c.tif"}, {"d.tif"}}, {}, {});
    std::string text;
    for (const BookEntry& each : book.entries) {
        text += each.headword + (each.after ? "+" : "") + "/" + std::to_string(each.page);
        for (const std::string& file : each.errata)
            text += " " + file;
        text += "\n";
    }
    EXPECT_EQ(text, "aa/0\nbb/0\nbb+/1 e1.tif e2.tif e4.tif\nbc/1 e3.tif\nbd/1\nbd+/3\nbe/3\n");
    EXPECT_EQ(book.pages[2].number, "8");
    EXPECT_EQ(book.pages[3].number, "9");
    ASSERT_EQ(book.problems.size(), 1U);
    EXPECT_EQ(book.problems[0].row, 7U);
}

} // namespace
} // namespace velmarin
