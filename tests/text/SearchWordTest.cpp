#include "text/SearchWord.h"
#include "support/RandomText.h"
#include "text/CharacterFolding.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// The katakana that have a row, each moved by `offset` code points.
std::string kana(char32_t offset) {
    std::string text;
    for (char32_t c = U'ァ'; c < U'ヵ'; ++c)
        if (c != U'セ' && c != U'ヮ')
            appendUtf8(text, c - offset);
    return text;
}

TEST(CharacterFolding, FoldsItsCharactersAndNoOthers) {
    const struct {
        const char* name;
        std::string (*fold)(std::string_view);
        std::string characters, folded;
    } rows[] = {
        {"kana", mStrMod_ConvertKataToHira, kana(0), kana(0x60)},
        {"letters", mStrMod_ZenToHan_Alph,
         "ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ",
         "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
        {"marks", mStrMod_ZenToHan_Mark, "！”＃＄％＆’（）＝＾＋−〜｜＼｛｝［］＊＜＞／＿？：；．，",
         "!\"#$%&'()=^+-~|\\{}[]*<>/_?:;.,"},
        {"digits", mStrMod_ZenToHan_Num, "０１２３４５６７８９，．", "0123456789,."},
        {"space", mStrMod_ZenToHan_Space, "\u3000", " "},
        {"accents", mStrMod_RemoveAccentFromLetters,
         "àáâäìíîïùúûüèéêëòóôöÿçñāīūēōăĭŭĕŏßæœÀÁÂÄÌÍÎÏÙÚÛÜÈÉÊËÒÓÔÖŸÇÑĀĪŪĒŌĂĬŬĔŎÆŒ",
         "aaaaiiiiuuuueeeeooooycnaiueoaiueossaeoeAAAAIIIIUUUUEEEEOOOOYCNAIUEOAIUEOAEOE"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.fold(row.characters), row.folded) << row.name;
        std::string others = "\xE9"; // a stray byte
        for (char32_t c = 0; c < 0x10000; c = c == U'ー' ? U'\uFF00' : c + 1) {
            std::string one;
            appendUtf8(one, c);
            if (row.characters.find(one) == std::string::npos)
                others += one;
        }
        EXPECT_EQ(row.fold(others), others) << row.name;
    }
}

TEST(SearchWord, FoldsTheWaysToTypeOneWord) {
    const struct {
        const char* reason;
        std::string text, word;
    } rows[] = {
        {"empty", "", ""},
        {"sharp s and ligature", "Straße œuvre", "STRASSE OEUVRE"},
        {"blanks stay", "  a\u3000 b ", "  A  B "},
        {"closing quotes only", "“a”‘b’", "“A\"‘B'"},
        {"NUL", std::string("a\0é", 4), std::string("A\0E", 3)},
        {"stray bytes", "\xE9\xE3\x82z", "\xE9\xE3\x82Z"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mSub_MakeSearchWord(row.text), row.word) << row.reason;
        std::string words = "before\xC3";
        appendSearchWord(words, row.text);
        EXPECT_EQ(words, "before\xC3" + row.word) << row.reason;
    }
}

const FoldingTable* const tables[] = {&zenToHanAlphTable(),  &zenToHanMarkTable(), &zenToHanNumTable(),
                                      &zenToHanSpaceTable(), &kataToHiraTable(),   &removeAccentTable()};

std::string rowByRow(std::string text) {
    for (const FoldingTable* table : tables)
        for (const FoldingRow& row : table->rows)
            text = table->caseRule == CaseRule::ByteExact ? ReplaceAllB(text, row.find, row.replacement)
                                                          : ReplaceAll(text, row.find, row.replacement);
    return Uppercase(text);
}

TEST(SearchWord, EqualsTheChainOfAllRows) {
    std::vector<std::string> pieces;
    for (const FoldingTable* table : tables)
        for (const FoldingRow& row : table->rows) {
            pieces.push_back(row.find);
            pieces.push_back(row.find.substr(0, row.find.size() - 1));
            ASSERT_EQ(mSub_MakeSearchWord(row.find), rowByRow(row.find));
        }
    RandomText random(pieces, 5);
    for (int i = 0; i < 1500; ++i) {
        const std::string text = random(40);
        ASSERT_EQ(mSub_MakeSearchWord(text), rowByRow(text)) << text;
    }
    // Every character of the first plane; many in one string, to keep the passes of the chain few.
    for (char32_t c = 0; c < 0x10000;) {
        std::string text;
        for (const char32_t end = c + 0x4000; c < end; ++c)
            appendUtf8(text, c);
        ASSERT_EQ(mSub_MakeSearchWord(text), rowByRow(text));
    }
}

TEST(SpanishOrder, EncodesTheDigraphsAsLettersAndDecodesThem) {
    const struct {
        std::string plain, encoded, decoded;
    } rows[] = {
        {"mucho calle", "muc\u0283o cal\u028Ee", "mucho calle"},
        {"CHico Llama LLANO cHa", "c\u0283ico l\u028Eama l\u028EANO c\u0283a", "chico llama llANO cha"},
        {"lll casa", "l\u028El casa", "lll casa"},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mSub_Spanish(row.plain, 0), row.encoded);
        for (const int direction : {1, -1})
            EXPECT_EQ(mSub_Spanish(row.encoded, direction), row.decoded);
    }
    EXPECT_EQ(mSub_Spanish("C\u01A9A", 1), "chA");
}

IndexOrder order(bool spanish, bool ijuv, std::string format = {}) {
    return {spanish, ijuv, std::move(format)};
}

TEST(SearchWordOfALine, EndsAtTheDelimiterAndAppliesTheModeFirst) {
    const struct {
        IndexOrder order;
        std::string line, word;
    } rows[] = {
        {order(false, false), "abc__DLM__rest", "ABC"},
        {order(false, false), "a_DLM_b", "A_DLM_B"},
        {order(false, false), "__DLM__abc", ""},
        {order(true, false), "mucho ｃｈ__DLM__", "MUC\u01A9O CH"},
        {order(false, true), "Julius venit Ｊ", "IULIUS UENIT J"},
        {order(true, true), "jvch", "JVC\u01A9"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(indexSearchWord(row.line, row.order), row.word);
}

TEST(SearchWordOfAQuery, AppliesTheModeLast) {
    const struct {
        const char* reason;
        IndexOrder order;
        std::string query, word, plain;
    } rows[] = {
        {"no delimiter of lines", order(false, false), "a__DLM__b", "A__DLM__B", "A__DLM__B"},
        {"Spanish", order(true, false), "mucho", "MUc\u0283O", "MUCHO"},
        {"Latin, after full width", order(false, true), "Juliusｊ", "IULIUSI", "JULIUSJ"},
        {"Spanish wins", order(true, true), "jch", "Jc\u0283", "JCH"},
        {"negative number", order(false, false, "000"), "-7", "-007", "-007"},
        {"negative number in fields", order(false, false, "000-00"), "-7", "-07", "-07"},
        {"zero is a word", order(false, false, "000"), "0", "0", "0"},
        {"not a number", order(false, false, "000-00"), "a-3", "A-3", "A-3"},
        {"full-width digits are a word", order(false, false, "000"), "７", "7", "7"},
        {"formatted words are not folded, the mode applies", order(false, true, "000-00"), "7-v", "007-u", "007-v"},
        {"empty", order(true, true, "000"), "", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(querySearchWord(row.query, row.order), row.word) << row.reason;
        EXPECT_EQ(querySearchWord(row.query, row.order, true), row.plain) << row.reason;
    }
}

TEST(NumberFormat, RewritesAQueryFieldByField) {
    const struct {
        const char* reason;
        std::string query, format, word;
    } rows[] = {
        {"one field", "7-3", "000", "007"},
        {"one field, no number", "abc", "000", "000"},
        {"the first separator of the format, the second in its picture", "12.3/4", "000-00:0", "012-00:3-4"},
        {"surplus field as typed", "12-3-4", "000-00", "012-03-4"},
        {"two zeros are not a number, one is", "00-0", "000-00", "00-00"},
        {"empty field is kept", "12--3", "000-00", "012--3"},
        {"empty query", "", "000-00", ""},
        {"underscore is not a separator", "12_3-45", "000-0_0", "012-4_5"},
        {"backslash", "3-7", "00\\00", "03\\07"},
        {"number sign separates", "12-3", "##0-00", "12#3"},
        {"separator beyond ASCII", "12-3", "000・00", "012・03"},
        {"each byte of the query separates", "12é3", "000-00", "012--3"},
        {"format with a stray byte", "1-2", "00\35100", "01\35102"},
        {"fraction rounded", "1.5-2", "00", "02"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mSub_Format(row.query, row.format), row.word) << row.reason;
}

} // namespace
} // namespace velmarin
