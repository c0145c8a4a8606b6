#include "text/CharacterFolding.h"

#include "text/FindReplace.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t length = decodeUtf8(text, pos).length;
        characters.emplace_back(text.substr(pos, length));
        pos += length;
    }
    return characters;
}

/// Collects the rows of a table.
class Rows {
  public:
    explicit Rows(CaseRule caseRule) : table_{caseRule, {}} {}

    /// One row per character of `finds`, replaced by the character at the same position in `replacements`.
    Rows& each(std::string_view finds, std::string_view replacements) {
        const std::vector<std::string> from = charactersOf(finds), to = charactersOf(replacements);
        for (std::size_t i = 0; i < from.size(); ++i)
            table_.rows.push_back({from[i], to.at(i)});
        return *this;
    }

    /// One row per character of `finds`, all replaced by the same text.
    Rows& all(std::string_view finds, std::string_view replacement) {
        for (std::string& find : charactersOf(finds))
            table_.rows.push_back({std::move(find), std::string(replacement)});
        return *this;
    }

    FoldingTable table() { return std::move(table_); }

  private:
    FoldingTable table_;
};

bool isAllAscii(std::string_view text) {
    for (const char c : text)
        if (!isAscii(c))
            return false;
    return true;
}

} // namespace

std::string FoldingTable::apply(std::string_view text) const {
    std::string result(text);
    if (isAllAscii(text))
        return result; // no row finds ASCII
    for (const FoldingRow& row : rows)
        result = caseRule == CaseRule::ByteExact ? ReplaceAllB(result, row.find, row.replacement)
                                                 : ReplaceAll(result, row.find, row.replacement);
    return result;
}

const FoldingTable& kataToHiraTable() {
    static const FoldingTable table = Rows(CaseRule::IgnoreCase)
                                          .each("アイウエオ", "あいうえお")
                                          .each("カキクケコ", "かきくけこ")
                                          .each("サシスソ", "さしすそ") // no row for セ
                                          .each("タチツテト", "たちつてと")
                                          .each("ナニヌネノ", "なにぬねの")
                                          .each("ハヒフヘホ", "はひふへほ")
                                          .each("マミムメモ", "まみむめも")
                                          .each("ヤユヨ", "やゆよ")
                                          .each("ラリルレロ", "らりるれろ")
                                          .each("ワヰヱヲ", "わゐゑを")
                                          .each("ン", "ん")
                                          .each("ガギグゲゴ", "がぎぐげご")
                                          .each("ザジズゼゾ", "ざじずぜぞ")
                                          .each("ダヂヅデド", "だぢづでど")
                                          .each("バビブベボ", "ばびぶべぼ")
                                          .each("パピプペポ", "ぱぴぷぺぽ")
                                          .each("ヴ", "ゔ")
                                          .each("ッャュョ", "っゃゅょ")
                                          .each("ァィゥェォ", "ぁぃぅぇぉ")
                                          .table();
    return table;
}

const FoldingTable& zenToHanAlphTable() {
    static const FoldingTable table =
        Rows(CaseRule::ByteExact)
            .each("ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ", "ABCDEFGHIJKLMNOPQRSTUVWXYZ")
            .each("ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ", "abcdefghijklmnopqrstuvwxyz")
            .table();
    return table;
}

const FoldingTable& zenToHanMarkTable() {
    static const FoldingTable table = Rows(CaseRule::IgnoreCase)
                                          .each("！”＃＄％＆’（）＝＾＋", "!\"#$%&'()=^+")
                                          .each("−〜｜＼｛｝", "-~|\\{}")
                                          .each("［］＊＜＞／＿？：；．，", "[]*<>/_?:;.,")
                                          .table();
    return table;
}

const FoldingTable& zenToHanNumTable() {
    static const FoldingTable table =
        Rows(CaseRule::IgnoreCase).each("０１２３４５６７８９", "0123456789").each("，．", ",.").table();
    return table;
}

const FoldingTable& zenToHanSpaceTable() {
    static const FoldingTable table = Rows(CaseRule::IgnoreCase).each("\u3000", " ").table();
    return table;
}

const FoldingTable& removeAccentTable() {
    static const FoldingTable table = Rows(CaseRule::ByteExact)
                                          .all("àáâä", "a")
                                          .all("ìíîï", "i")
                                          .all("ùúûü", "u")
                                          .all("èéêë", "e")
                                          .all("òóôö", "o")
                                          .all("ÿ", "y")
                                          .all("ç", "c")
                                          .all("ñ", "n")
                                          .all("ß", "ss")
                                          .all("æ", "ae")
                                          .all("œ", "oe")
                                          .each("āīūēō", "aiueo")
                                          .each("ăĭŭĕŏ", "aiueo")
                                          .all("ÀÁÂÄ", "A")
                                          .all("ÌÍÎÏ", "I")
                                          .all("ÙÚÛÜ", "U")
                                          .all("ÈÉÊË", "E")
                                          .all("ÒÓÔÖ", "O")
                                          .all("Ÿ", "Y")
                                          .all("Ç", "C")
                                          .all("Ñ", "N")
                                          .all("Æ", "AE")
                                          .all("Œ", "OE")
                                          .each("ĀĪŪĒŌ", "AIUEO")
                                          .each("ĂĬŬĔŎ", "AIUEO")
                                          .table();
    return table;
}

std::string mStrMod_ConvertKataToHira(std::string_view text) {
    return kataToHiraTable().apply(text);
}
std::string mStrMod_ZenToHan_Alph(std::string_view text) {
    return zenToHanAlphTable().apply(text);
}
std::string mStrMod_ZenToHan_Mark(std::string_view text) {
    return zenToHanMarkTable().apply(text);
}
std::string mStrMod_ZenToHan_Num(std::string_view text) {
    return zenToHanNumTable().apply(text);
}
std::string mStrMod_ZenToHan_Space(std::string_view text) {
    return zenToHanSpaceTable().apply(text);
}
std::string mStrMod_RemoveAccentFromLetters(std::string_view text) {
    return removeAccentTable().apply(text);
}

} // namespace velmarin
