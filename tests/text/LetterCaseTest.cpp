#include "text/LetterCase.h"
#include "RandomText.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velmarin {
namespace {

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
    const struct {
        const char* reason;
        std::string a, b;
        int order;
    } rows[] = {
        {"prefix first", "ABC", "abcd", -1},
        {"capitals lie before the underscore", "a", "_", -1},
        {"encoded ch after all plain ones", "c\u0283ico", "CUZ", 1},
        {"encoded ch of query and index are one", "MUc\u0283O", "MUC\u01A9O", 0},
        {"difference behind a character that changes its length", "ıb", "Ic", -1},
        {"stray byte before a character that starts with it", "\xC3", "\xC3\x89", -1},
        {"NUL counts", std::string("a\0", 2), "a", 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(sign(compareStrings(row.a, row.b)), row.order) << row.reason;
        EXPECT_EQ(sign(compareStrings(row.b, row.a)), -row.order) << row.reason;
        EXPECT_EQ(equalStrings(row.a, row.b), row.order == 0) << row.reason;
    }
}

TEST(StringOrder, EqualsTheOrderOfUpperCaseForms) {
    RandomText random({"a", "A", "ß", "ı", "i", "é", "É", "\u0283", "あ", "\xC3", "\xA9", "\xF0\x90"}, 2);
    for (int i = 0; i < 20000; ++i) {
        const std::string a = random(5), b = random(5);
        ASSERT_EQ(sign(compareStrings(a, b)), sign(Uppercase(a).compare(Uppercase(b)))) << a << " and " << b;
    }
}

TEST(FileNames, AreEqualWhereAFoldingFileSystemTreatsThemSo) {
    const struct {
        const char* reason;
        std::string a, b;
        bool one;
    } rows[] = {
        {"case", "PAGE1.TIF", "page1.tif", true},
        {"composition", "caf\u00E9.png", "cafe\u0301.png", true},
        {"case and composition", "CAFE\u0301.png", "caf\u00E9.PNG", true},
        {"voiced kana", "\u304C", "\u304B\u3099", true},
        {"accent", "cafe", "café", false},
        {"stray byte", "A\xE9z\xFF", "a\xE9Z\xFF", true},
        {"other stray byte", "a\xE9", "a\xE8", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(foldedFileName(row.a) == foldedFileName(row.b), row.one) << row.reason;
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
    const struct {
        const char* reason;
        std::string text, repaired;
    } rows[] = {
        {"lowest and highest of each length", "\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF",
         "\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"},
        {"neighbours of the surrogates", "\uD7FF\uE000", "\uD7FF\uE000"},
        {"stray byte behind a word of ASCII", "12345678\xE9", "12345678\uFFFD"},
        {"stray continuation", "\x80z", "\uFFFDz"},
        {"cut at the end", "z\xF0\x90\x80", "z\uFFFD\uFFFD\uFFFD"},
        {"cut by the next character", "\xE3\x82z", "\uFFFD\uFFFDz"},
        {"overlong NUL", "\xC0\x80", "\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"overlong of three", "\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
        {"beyond the last code point", "\xF5\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isValidUtf8(row.text), row.text == row.repaired) << row.reason;
        EXPECT_EQ(toValidUtf8(row.text), row.repaired) << row.reason;
    }
}

} // namespace
} // namespace velmarin
