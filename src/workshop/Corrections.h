#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"
#include "store/PageList.h"
#include "workshop/DictionaryText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

enum class CorrectionKind {
    Page,     ///< a headword opened a wrong page
    Headword, ///< a headword was written wrongly, so that it was found elsewhere
    Missing,  ///< a headword had no line, and a search for it opened a wrong page
};

/// What a reader has put right in a dictionary: after it, `headword` opens `page`.
struct Correction {
    CorrectionKind kind = CorrectionKind::Page;
    std::string headword;
    std::string page;
    std::string was = {}; ///< Page: the wrong page; Headword: the wrong headword

    friend bool operator==(const Correction&, const Correction&) = default;
};

/// A table (making/SeparatedValues.h) with the columns change (nameOf), headword, page and
/// was, one row a correction in the order in which they were made.
std::string formatCorrections(const std::vector<Correction>& corrections);
/// Rows that are not corrections are left out.
std::vector<Correction> parseCorrections(std::string_view table);

/// Adds a correction to those made before. One of what an earlier one has made is joined with it.
void addCorrection(std::vector<Correction>& corrections, const Correction& correction);

/// "1 correction", "2 corrections".
std::string countOf(std::size_t corrections);
/// "“hen”, “owl”.", with at most five headwords.
std::string headwordsOf(const std::vector<Correction>& corrections);

/// "page", "headword" or "missing".
const char* nameOf(CorrectionKind kind);

/// The user's folder of corrections, in pFiMod_UserPrefContainer.
FolderItem correctionsFolder();
/// The file that keeps the corrections of a dictionary: GROUP/DICTIONARY.tsv in `folder`. It is outside the dictionary,
/// so that an update does not remove it.
FolderItem correctionsFile(const FolderItem& folder, const FolderItem& dictionary);

/// Whether a dictionary needs the correction no more.
bool isDone(const Correction& correction, const DictionaryText& text);

/// Makes a correction in the text. It fails, and changes nothing, if the dictionary is not as the correction expects
/// it: the entry is not there, opens another page than the wrong one, or its headword cannot be written.
///
/// A missing headword that opens a page out of order gets a line after it that returns to the page before, as in a new
/// dictionary (making/IndexPlan.h), so that no other word is led astray.
Result makeCorrection(const Correction& correction, const ImageDictionaryMap& pages, DictionaryText& text);

} // namespace velmarin
