#include "text/DicDataModule.h"
#include "text/StringModule.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <set>

namespace velmarin {
namespace {

std::vector<char32_t> codePoints(std::string_view text) {
    std::vector<char32_t> points;
    for (std::size_t pos = 0; pos < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, pos);
        points.push_back(unit.value);
        pos += unit.length;
    }
    return points;
}

char32_t only(std::string_view text) {
    const std::vector<char32_t> points = codePoints(text);
    EXPECT_EQ(points.size(), 1u) << text;
    return points.empty() ? 0 : points[0];
}

TEST(ConversionTables, HaveTheirRowsAndCaseRules) {
    const struct {
        const char* name;
        const ConversionTable& table;
        std::size_t rows;
        CaseRule caseRule;
    } tables[] = {
        {"kana", kataToHiraTable(), 82, CaseRule::IgnoreCase},
        {"letters", zenToHanAlphTable(), 52, CaseRule::ByteExact},
        {"marks", zenToHanMarkTable(), 30, CaseRule::IgnoreCase},
        {"digits", zenToHanNumTable(), 12, CaseRule::IgnoreCase},
        {"space", zenToHanSpaceTable(), 1, CaseRule::IgnoreCase},
        {"accents", removeAccentTable(), 71, CaseRule::ByteExact},
    };
    std::set<std::string> putIn;
    for (const auto& row : tables) {
        EXPECT_EQ(row.table.rows.size(), row.rows) << row.name;
        EXPECT_EQ(row.table.caseRule, row.caseRule) << row.name;
        std::set<std::string> finds;
        for (const ConversionRow& conversion : row.table.rows) {
            EXPECT_GE(only(conversion.find), 0x80u) << row.name;
            EXPECT_TRUE(finds.insert(conversion.find).second) << row.name << " " << conversion.find;
            EXPECT_EQ(row.table.apply(conversion.find), conversion.replacement) << row.name;
            putIn.insert(conversion.replacement);
        }
    }
    for (const auto& row : tables)
        for (const ConversionRow& conversion : row.table.rows)
            EXPECT_EQ(putIn.count(conversion.find), 0u) << "a later row would take " << conversion.find << " up again";
}

TEST(ConversionTables, TakeEachKatakanaToTheHiraganaOfItsSound) {
    std::set<char32_t> finds;
    for (const ConversionRow& row : kataToHiraTable().rows) {
        EXPECT_EQ(only(row.find) - 0x60, only(row.replacement)) << row.find;
        finds.insert(only(row.find));
    }
    for (char32_t c = 0x30A1; c <= 0x30F6; ++c) {
        const bool without = c == U'セ' || c == U'ヮ' || c == U'ヵ' || c == U'ヶ';
        EXPECT_EQ(finds.count(c), without ? 0u : 1u) << std::hex << static_cast<std::uint32_t>(c);
    }
    EXPECT_EQ(kataToHiraTable().rows[11].find, "シ");
    EXPECT_EQ(kataToHiraTable().rows[13].find, "ソ");
    EXPECT_EQ(kataToHiraTable().rows[81].find, "ォ");
}

TEST(ConversionTables, TakeFullWidthLettersAndDigitsInOrder) {
    const auto& letters = zenToHanAlphTable().rows;
    for (std::size_t i = 0; i < 26; ++i) {
        const auto place = static_cast<char32_t>(i);
        EXPECT_EQ(only(letters[i].find), 0xFF21 + place);
        EXPECT_EQ(only(letters[i].replacement), U'A' + place);
        EXPECT_EQ(only(letters[26 + i].find), 0xFF41 + place);
        EXPECT_EQ(only(letters[26 + i].replacement), U'a' + place);
    }
    const auto& digits = zenToHanNumTable().rows;
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(only(digits[i].find), 0xFF10 + i);
        EXPECT_EQ(only(digits[i].replacement), U'0' + i);
    }
    EXPECT_EQ(only(digits[10].find), 0xFF0Cu);
    EXPECT_EQ(digits[10].replacement, ",");
    EXPECT_EQ(only(digits[11].find), 0xFF0Eu);
    EXPECT_EQ(digits[11].replacement, ".");
    EXPECT_EQ(only(zenToHanSpaceTable().rows[0].find), 0x3000u);
    EXPECT_EQ(zenToHanSpaceTable().rows[0].replacement, " ");
}

TEST(ConversionTables, TakeTheMarksOfTheTableOnly) {
    const std::vector<std::pair<char32_t, char>> marks = {
        {0xFF01, '!'},  {0x201D, '"'}, {0xFF03, '#'}, {0xFF04, '$'},  {0xFF05, '%'}, {0xFF06, '&'},
        {0x2019, '\''}, {0xFF08, '('}, {0xFF09, ')'}, {0xFF1D, '='},  {0xFF3E, '^'}, {0xFF0B, '+'},
        {0x2212, '-'},  {0x301C, '~'}, {0xFF5C, '|'}, {0xFF3C, '\\'}, {0xFF5B, '{'}, {0xFF5D, '}'},
        {0xFF3B, '['},  {0xFF3D, ']'}, {0xFF0A, '*'}, {0xFF1C, '<'},  {0xFF1E, '>'}, {0xFF0F, '/'},
        {0xFF3F, '_'},  {0xFF1F, '?'}, {0xFF1A, ':'}, {0xFF1B, ';'},  {0xFF0E, '.'}, {0xFF0C, ','}};
    const auto& rows = zenToHanMarkTable().rows;
    ASSERT_EQ(rows.size(), marks.size());
    for (std::size_t i = 0; i < marks.size(); ++i) {
        EXPECT_EQ(only(rows[i].find), marks[i].first) << i;
        EXPECT_EQ(rows[i].replacement, std::string(1, marks[i].second)) << i;
    }
}

TEST(ConversionTables, TakeTheAccentsOffInOrder) {
    const std::vector<std::pair<char32_t, const char*>> small = {
        {0xE0, "a"},  {0xE1, "a"},   {0xE2, "a"},  {0xE4, "a"},  {0xEC, "i"},  {0xED, "i"},  {0xEE, "i"},  {0xEF, "i"},
        {0xF9, "u"},  {0xFA, "u"},   {0xFB, "u"},  {0xFC, "u"},  {0xE8, "e"},  {0xE9, "e"},  {0xEA, "e"},  {0xEB, "e"},
        {0xF2, "o"},  {0xF3, "o"},   {0xF4, "o"},  {0xF6, "o"},  {0xFF, "y"},  {0xE7, "c"},  {0xF1, "n"},  {0xDF, "ss"},
        {0xE6, "ae"}, {0x153, "oe"}, {0x101, "a"}, {0x12B, "i"}, {0x16B, "u"}, {0x113, "e"}, {0x14D, "o"}, {0x103, "a"},
        {0x12D, "i"}, {0x16D, "u"},  {0x115, "e"}, {0x14F, "o"}};
    const auto& rows = removeAccentTable().rows;
    ASSERT_EQ(rows.size(), 2 * small.size() - 1);
    std::size_t capital = small.size();
    for (std::size_t i = 0; i < small.size(); ++i) {
        EXPECT_EQ(only(rows[i].find), small[i].first) << i;
        EXPECT_EQ(rows[i].replacement, small[i].second) << i;
        if (small[i].first == U'ß')
            continue;
        EXPECT_EQ(only(rows[capital].find), capitalOf(small[i].first)) << i;
        std::string letters = small[i].second;
        for (char& c : letters)
            c = asciiCapital(c);
        EXPECT_EQ(rows[capital].replacement, letters) << i;
        ++capital;
    }
}

TEST(Conversions, KeepWhatTheirTableDoesNotName) {
    using Conversion = std::string (*)(std::string_view);
    const struct {
        const char* reason;
        Conversion convert;
        std::string text, converted;
    } rows[] = {
        {"case is kept", mStrMod_ZenToHan_Alph, "ＡＢＣａｂｃ", "ABCabc"},
        {"voiced and small", mStrMod_ConvertKataToHira, "ガッコウ", "がっこう"},
        {"no row for セ", mStrMod_ConvertKataToHira, "セカイ", "セかい"},
        {"but one for ゼ", mStrMod_ConvertKataToHira, "ゼロ", "ぜろ"},
        {"no row for these", mStrMod_ConvertKataToHira, "ヮヵヶーｱ", "ヮヵヶーｱ"},
        {"two letters", mStrMod_RemoveAccentFromLetters, "Æsop", "AEsop"},
        {"sharp s", mStrMod_RemoveAccentFromLetters, "ßa", "ssa"},
        {"not in the table", mStrMod_RemoveAccentFromLetters, "ãõåøýÃÕÅØÝ", "ãõåøýÃÕÅØÝ"},
        {"a combining accent", mStrMod_RemoveAccentFromLetters, "e\u0301", "e\u0301"},
        {"number", mStrMod_ZenToHan_Num, "１，０００．５", "1,000.5"},
        {"opening quotes and other dashes", mStrMod_ZenToHan_Mark, "“‘—–－”’", "“‘—–－\"'"},
        {"space", mStrMod_ZenToHan_Space, "a\u3000b c", "a b c"},
        {"outside the tables", mStrMod_ZenToHan_Mark, "½", "½"},
        {"empty", mStrMod_ConvertKataToHira, "", ""},
        {"stray bytes around", mStrMod_RemoveAccentFromLetters,
         "\xC3"
         "é\xA9",
         "\xC3"
         "e\xA9"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.convert(row.text), row.converted) << row.reason;
}

} // namespace
} // namespace velmarin
