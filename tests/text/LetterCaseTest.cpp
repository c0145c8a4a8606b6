#include "text/LetterCase.h"
#include "support/RandomText.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velmarin {
namespace {

using namespace std::string_literals;

int sign(int order) {
    return (order > 0) - (order < 0);
}

std::string utf8(char32_t c) {
    std::string text;
    appendUtf8(text, c);
    return text;
}

TEST(Uppercase, WritesSimpleCapitals) {
    const struct {
        const char* reason;
        std::string text, capitals;
    } rows[] = {
        {"accents are kept", "éñÿ", "ÉÑŸ"},
        {"esh of the encoded ch", "c\u0283", "C\u01A9"},
        {"turned y of the encoded ll has no capital", "l\u028E", "L\u028E"},
        {"one character stays one", "ß\u0149", "ẞ\u0149"},
        {"dotless i and long s become ASCII", "ıſ", "IS"},
        {"digraph with a title form", "\u01C6\u01C5", "\u01C4\u01C4"},
        {"beyond the first plane", "\U00010428", "\U00010400"},
        {"without case", "あア漢½", "あア漢½"},
        {"NUL inside", std::string("a\0b", 3), std::string("A\0B", 3)},
        {"Latin-1 byte", "caf\xE9s", "CAF\xE9S"},
        {"beyond the last code point", "\xF4\x90\x80\x80z", "\xF4\x90\x80\x80Z"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Uppercase(row.text), row.capitals) << row.reason;
}

TEST(StringOrder, IsThatOfCapitalsByCodePoint) {
    EXPECT_LT(compareStrings("a", "_"), 0) << "capitals are before the underscore";
    EXPECT_GT(compareStrings("c\u0283ico", "CUZ"), 0) << "the encoded ch is after all plain ones";
    RandomText random({"a", "A", "ß", "ı", "i", "é", "É", "\u0283", "あ", "\xC3", "\xA9", "\xF0\x90"}, 2);
    for (int i = 0; i < 20000; ++i) {
        const std::string a = random(5), b = random(5), longA = a + random(2), longB = b + random(2);
        const int order = sign(Uppercase(a).compare(Uppercase(b)));
        const std::string_view left = std::string_view(longA).substr(0, a.size());
        const std::string_view right = std::string_view(longB).substr(0, b.size());
        ASSERT_EQ(sign(compareStrings(left, right)), order) << a << " and " << b;
        ASSERT_EQ(equalStrings(left, right), order == 0) << a << " and " << b;
    }
}

TEST(FileNames, AreEqualIfAFoldingFileSystemTreatsThemSo) {
    const struct {
        std::string a, b;
        bool one;
    } rows[] = {{"PAGE1.TIF", "page1.tif", true},   {"CAFE\u0301.png", "caf\u00E9.PNG", true},
                {"\u304C", "\u304B\u3099", true},   {"cafe", "café", false},
                {"A\xE9z\xFF", "a\xE9Z\xFF", true}, {"a\xE9", "a\xE8", false}};
    for (const auto& row : rows)
        EXPECT_EQ(foldedFileName(row.a) == foldedFileName(row.b), row.one) << row.a << " " << row.b;
    EXPECT_EQ(composedForm("a\xFFzCAFE\u0301"), "a\xFFzCAF\u00C9");
    for (const char32_t c : {U'É', U'ß', U'ſ', U'\u1E9E'})
        EXPECT_EQ(foldedFileName(utf8(c)), foldedFileName(Uppercase(utf8(c)))) << static_cast<std::uint32_t>(c);
}

TEST(Utf8, EveryCodePointIsDecodedAsItWasEncoded) {
    for (char32_t c = 0; c < kInvalidByteUnit; c += c == 0xD7FF ? 0x801 : c < 0x11000 ? 1 : 0xFF) {
        const std::string text = utf8(c);
        ASSERT_EQ(decodeUtf8(text, 0).value, c);
        ASSERT_EQ(decodeUtf8(text, 0).length, text.size());
    }
}

TEST(Utf8, IsDistinguishedFromOtherBytes) {
    const std::pair<std::string, std::string> rows[] = {
        {"\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", "\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"},
        {"\uD7FF\uE000", "\uD7FF\uE000"},
        {"12345678\xE9", "12345678\uFFFD"},
        {"\x80z", "\uFFFDz"},
        {"z\xF0\x90\x80", "z\uFFFD\uFFFD\uFFFD"},
        {"\xE3\x82z", "\uFFFD\uFFFDz"},
        {"\xC0\x80", "\uFFFD\uFFFD"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xF5\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}};
    for (const auto& [text, repaired] : rows) {
        EXPECT_EQ(isValidUtf8(text), text == repaired) << repaired;
        EXPECT_EQ(toValidUtf8(text), repaired);
    }
}

} // namespace
} // namespace velmarin
