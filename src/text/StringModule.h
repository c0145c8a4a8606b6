#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// How a table looks for its texts.
enum class CaseRule { IgnoreCase, ByteExact };

struct ConversionRow {
    std::string find;
    std::string replacement;
};

/// Rows are applied in order, each over the whole string. No row looks for what another row of any table puts in, and
/// each looks for one character, so that a single pass over the string may stand for the chain.
struct ConversionTable {
    CaseRule caseRule;
    std::vector<ConversionRow> rows;

    /// The plain chain, row by row.
    std::string apply(std::string_view text) const;
};

const ConversionTable& kataToHiraTable();
const ConversionTable& zenToHanAlphTable();
const ConversionTable& zenToHanMarkTable();
const ConversionTable& zenToHanNumTable();
const ConversionTable& zenToHanSpaceTable();
const ConversionTable& removeAccentTable();

/// Katakana to hiragana. セ, ヮ, ヵ, ヶ, the long-vowel mark and half-width katakana have no row and stay.
std::string mStrMod_ConvertKataToHira(std::string_view text);
/// Full-width Latin letters to ASCII ones, the case kept.
std::string mStrMod_ZenToHan_Alph(std::string_view text);
/// Full-width marks to ASCII ones; of the curly quotes only the closing ones, of the dashes only U+2212.
std::string mStrMod_ZenToHan_Mark(std::string_view text);
/// Full-width digits, comma and full stop to ASCII ones.
std::string mStrMod_ZenToHan_Num(std::string_view text);
/// The ideographic space to a blank.
std::string mStrMod_ZenToHan_Space(std::string_view text);
/// Accents off the Latin letters of the table, the case kept; ß, æ and œ become two letters.
std::string mStrMod_RemoveAccentFromLetters(std::string_view text);

/// Text encodings known by name; empty until the module is opened.
extern std::vector<std::string> pStrMod_Encodings;

/// Makes `Grep` anew and fills `pStrMod_Encodings`. Nothing else of the folder waits for it.
void mStrMod_OpenThisModule();

} // namespace velmarin
