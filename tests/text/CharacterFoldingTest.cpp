#include "text/CharacterFolding.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <map>

namespace velmarin {
namespace {

using Replacements = std::map<std::u32string, std::u32string>;

std::u32string codePoints(std::string_view text) {
    std::u32string points;
    for (std::size_t pos = 0; pos < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, pos);
        points += unit.value;
        pos += unit.length;
    }
    return points;
}

Replacements oneByOne(std::u32string_view finds, std::u32string_view replacements) {
    Replacements pairs;
    for (std::size_t i = 0; i < finds.size(); ++i)
        pairs[{finds[i]}] = {replacements.at(i)};
    return pairs;
}

Replacements kana() {
    Replacements pairs;
    for (char32_t c = U'ァ'; c <= U'ヶ'; ++c)
        if (c != U'セ' && c != U'ヮ' && c != U'ヵ' && c != U'ヶ')
            pairs[{c}] = {c - 0x60};
    return pairs;
}

Replacements letters() {
    Replacements pairs;
    for (char32_t i = 0; i < 26; ++i) {
        pairs[{U'Ａ' + i}] = {U'A' + i};
        pairs[{U'ａ' + i}] = {U'a' + i};
    }
    return pairs;
}

/// Written in small letters; every letter but ß has a capital.
Replacements accents() {
    Replacements pairs = oneByOne(U"àáâäìíîïùúûüèéêëòóôöÿçñāīūēōăĭŭĕŏ", U"aaaaiiiiuuuueeeeooooycnaiueoaiueo");
    pairs.insert({{U"æ", U"ae"}, {U"œ", U"oe"}});
    for (const auto& [find, replacement] : Replacements(pairs)) {
        std::u32string capitals;
        for (const char32_t c : replacement)
            capitals += capitalOf(c);
        pairs[{capitalOf(find[0])}] = capitals;
    }
    pairs[U"ß"] = U"ss";
    return pairs;
}

TEST(ConversionTables, ReplaceExactlyTheirCharacters) {
    const struct {
        const char* name;
        const FoldingTable& table;
        Replacements rows;
    } tables[] = {
        {"kana", kataToHiraTable(), kana()},
        {"letters", zenToHanAlphTable(), letters()},
        {"marks", zenToHanMarkTable(),
         oneByOne(U"！”＃＄％＆’（）＝＾＋−〜｜＼｛｝［］＊＜＞／＿？：；．，", U"!\"#$%&'()=^+-~|\\{}[]*<>/_?:;.,")},
        {"digits", zenToHanNumTable(), oneByOne(U"０１２３４５６７８９，．", U"0123456789,.")},
        {"space", zenToHanSpaceTable(), oneByOne(U"\u3000", U" ")},
        {"accents", removeAccentTable(), accents()},
    };
    std::u32string found, inserted;
    for (const auto& each : tables) {
        Replacements rows;
        for (const FoldingRow& row : each.table.rows) {
            EXPECT_TRUE(rows.emplace(codePoints(row.find), codePoints(row.replacement)).second) << row.find;
            found += codePoints(row.find);
            inserted += codePoints(row.replacement);
        }
        EXPECT_EQ(rows, each.rows) << each.name;
    }
    EXPECT_EQ(found.find_first_of(inserted), std::u32string::npos) << "a later row would replace it a second time";
}

TEST(Conversions, KeepWhatTheirTableDoesNotName) {
    const struct {
        const char* reason;
        std::string (*convert)(std::string_view);
        std::string text, converted;
    } rows[] = {
        {"case is kept", mStrMod_ZenToHan_Alph, "ＡＢＣａｂｃ", "ABCabc"},
        {"voiced, small, and no row for these", mStrMod_ConvertKataToHira, "ガッセヮヵヶーｱ", "がっセヮヵヶーｱ"},
        {"two letters", mStrMod_RemoveAccentFromLetters, "Æßa", "AEssa"},
        {"not in the table", mStrMod_RemoveAccentFromLetters, "ãõåøýÃÕÅØÝe\u0301", "ãõåøýÃÕÅØÝe\u0301"},
        {"number", mStrMod_ZenToHan_Num, "１，０００．５", "1,000.5"},
        {"opening quotes and other dashes", mStrMod_ZenToHan_Mark, "“‘—–－½”’", "“‘—–－½\"'"},
        {"space", mStrMod_ZenToHan_Space, "a\u3000b c", "a b c"},
        {"stray bytes around", mStrMod_RemoveAccentFromLetters, "\303é\251", "\303e\251"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.convert(row.text), row.converted) << row.reason;
}

} // namespace
} // namespace velmarin
