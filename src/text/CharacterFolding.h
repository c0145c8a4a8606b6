#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// How a table finds its texts.
enum class CaseRule { IgnoreCase, ByteExact };

struct FoldingRow {
    std::string find;
    std::string replacement;
};

/// Rows are applied in order, each to the whole string. Each row replaces a single character, and no row of any table
/// finds what another one inserts, so a single pass over the string gives the same result.
struct FoldingTable {
    CaseRule caseRule;
    std::vector<FoldingRow> rows;

    /// Applies the table row by row.
    std::string apply(std::string_view text) const;
};

const FoldingTable& kataToHiraTable();
const FoldingTable& zenToHanAlphTable();
const FoldingTable& zenToHanMarkTable();
const FoldingTable& zenToHanNumTable();
const FoldingTable& zenToHanSpaceTable();
const FoldingTable& removeAccentTable();

/// Katakana to hiragana. セ, ヮ, ヵ, ヶ, the long-vowel mark and half-width katakana have no row and stay unchanged.
std::string mStrMod_ConvertKataToHira(std::string_view text);
/// Full-width Latin letters to ASCII; keeps the case.
std::string mStrMod_ZenToHan_Alph(std::string_view text);
/// Full-width marks to ASCII. Of the curly quotes only the closing ones, of the dashes only U+2212.
std::string mStrMod_ZenToHan_Mark(std::string_view text);
/// Full-width digits, comma and full stop to ASCII.
std::string mStrMod_ZenToHan_Num(std::string_view text);
/// The ideographic space to a blank.
std::string mStrMod_ZenToHan_Space(std::string_view text);
/// Removes the accents of the Latin letters in the table and keeps the case; ß, æ and œ become two letters.
std::string mStrMod_RemoveAccentFromLetters(std::string_view text);

} // namespace velmarin
