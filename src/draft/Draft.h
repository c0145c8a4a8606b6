#pragma once

#include "files/Result.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// How far a row of a draft can be trusted.
enum class PageState {
    Certain,  ///< read without doubt, and in order with its neighbours
    Mended,   ///< another reading than the likeliest was taken because the order asks for it
    Doubtful, ///< a person has to look at it
    Set,      ///< a person has decided
};

/// "certain", "mended", "doubtful" or "set".
std::string_view nameOf(PageState state);

/// One page of a book in the making.
struct DraftPage {
    std::string page;        ///< its file name
    std::string number = {}; ///< printed on it; empty if none is known
    /// The guide words: the first and the last headword that the page names. Both may be empty: a plate, or a page on
    /// which no entry is known.
    std::string first = {}, last = {};
    int confidence = 0; ///< 0 to 100
    PageState state = PageState::Doubtful;
    std::string errata = {}; ///< files of further pages of its first entry, separated by ";"

    friend bool operator==(const DraftPage&, const DraftPage&) = default;
};

/// All pages of a book in their order.
struct Draft {
    std::vector<DraftPage> pages = {};

    friend bool operator==(const Draft&, const Draft&) = default;
};

/// A draft as a table (making/SeparatedValues.h) with the columns page, number, first, last, confidence and state,
/// and errata if a row has any.
std::string formatDraft(const Draft& draft);
/// Reads what formatDraft writes, and what a spreadsheet makes of it: columns by name in any order, of which only
/// `page` is needed. A row whose state is missing or unknown counts as Doubtful, and one that names no page is left
/// out. nullopt if there is no column `page`, or if a quote is never closed.
std::optional<Draft> parseDraft(std::string_view text);

/// Copies to the rows of `draft` what people add and no reading gives (errata), from the rows of `before` by page
/// (PageNames).
void keepAddedColumns(const Draft& before, Draft& draft);

/// Writes draft.tsv atomically.
Result saveDraft(const Draft& draft, const std::filesystem::path& file);

} // namespace velmarin
