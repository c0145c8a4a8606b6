#include "text/StringFields.h"
#include "support/RandomText.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(Fields, AreCutAtTheSeparatorByteByByte) {
    const struct {
        std::string text, separator;
        std::vector<std::string> fields;
    } rows[] = {
        {"", ",", {""}},
        {",a,", ",", {"", "a", ""}},
        {"key__DLM__rest__dlm__end__DLM__", "__DLM__", {"key", "rest__dlm__end", ""}},
        {"a,b", "", {"a,b"}},
        {std::string("a\0,b", 4), ",", {std::string("a\0", 2), "b"}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Split(row.text, row.separator), row.fields);
        EXPECT_EQ(Join(row.fields, row.separator), row.text);
        for (std::size_t n = 0; n < row.fields.size() + 2; ++n)
            EXPECT_EQ(NthField(row.text, row.separator, n), n > 0 && n <= row.fields.size() ? row.fields[n - 1] : "");
    }
    EXPECT_EQ(Join({}, ","), "");
}

TEST(InStr, ReturnsAByteFromOneOrZero) {
    const struct {
        std::size_t start;
        std::string text, find;
        std::size_t at;
    } rows[] = {{0, "abc", "a", 1}, {3, "abab", "a", 3}, {4, "abab", "a", 0}, {99, "abab", "a", 0}, {0, "abc", "", 0}};
    for (const auto& row : rows)
        EXPECT_EQ(InStr(row.start, row.text, row.find), row.at) << row.text << " " << row.find;
    EXPECT_EQ(InStr(0, "\u212A", "k"), 0U) << "the Kelvin sign is not k";
}

/// The units of a text, each by its capital, and where each begins.
struct Units {
    explicit Units(std::string_view text) {
        for (std::size_t pos = 0; pos < text.size();) {
            const Utf8Unit unit = decodeUtf8(text, pos);
            capitals += capitalOf(unit.value);
            begins.push_back(pos);
            pos += unit.length;
        }
        begins.push_back(text.size());
    }
    std::u32string capitals;
    std::vector<std::size_t> begins;
};

TEST(InStr, AndReplaceAllAgreeWithAnArrayOfCapitals) {
    RandomText random({"i", "s", "ı", "ſ", "é", "É", "a", "A", "\xC3", "\xA9"}, 3);
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = random(12), find = random(2);
        if (find.empty())
            continue;
        const Units inText(text), inFind(find);
        std::string replaced;
        std::size_t from = 0, first = 0;
        for (std::size_t at; (at = inText.capitals.find(inFind.capitals, from)) != std::u32string::npos;) {
            first = first ? first : inText.begins[at] + 1;
            replaced += text.substr(inText.begins[from], inText.begins[at] - inText.begins[from]) + "<>";
            from = at + inFind.capitals.size();
        }
        replaced += text.substr(inText.begins[from]);
        found += first > 0;
        ASSERT_EQ(InStr(0, text, find), first) << text << " / " << find;
        ASSERT_EQ(ReplaceAll(text, find, "<>"), replaced) << text << " / " << find;
    }
    EXPECT_GT(found, 1000);
}

TEST(ReplaceAll, InsertsTheReplacementOnce) {
    EXPECT_EQ(ReplaceAll("aa", "A", "aa"), "aaaa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAllB("aAa", "a", "aa"), "aaAaa");
    EXPECT_EQ(ReplaceAllB("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAllB("\343-", "-", ""), "\343");
}

} // namespace
} // namespace velmarin
