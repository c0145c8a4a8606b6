#include "text/CharacterFolding.h"
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

} // namespace
} // namespace velmarin
