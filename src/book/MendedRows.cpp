#include "book/MendedRows.h"

#include "files/ReadOnlyFile.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace velmarin {

namespace {

constexpr int kSure = 100;

bool isUnset(const DraftPage& row) {
    return row.state != PageState::Set;
}

bool sameWords(const DraftPage& one, const DraftPage& other) {
    return one.number == other.number && one.first == other.first && one.last == other.last;
}

std::unordered_map<std::string, DraftPage> keptRows(const FolderItem& file) {
    std::unordered_map<std::string, DraftPage> rows;
    Draft kept = parseDraft(readFileIfAny(file)).value_or(Draft());
    for (DraftPage& row : kept.pages) {
        const std::string page = row.page;
        rows.emplace(page, std::move(row));
    }
    return rows;
}

/// Whether a person has changed the words of a row. Cleared words are no change: the page is to be read again. Neither
/// is a number that is missing, or a last word if `hasLast` says that the draft has lost them all.
bool isEdited(const DraftPage& row, const DraftPage& kept, bool hasLast) {
    if (!row.number.empty() && row.number != kept.number)
        return true;
    return !(row.first.empty() && row.last.empty()) && (row.first != kept.first || (hasLast && row.last != kept.last));
}

} // namespace

Result keepMendedRows(const Draft& draft, const FolderItem& file) {
    const auto kept = keptRows(file);
    const auto isKept = [&kept](const DraftPage& row) {
        const auto found = kept.find(row.page);
        return found != kept.end() && sameWords(found->second, row);
    };
    Draft unset;
    std::copy_if(draft.pages.begin(), draft.pages.end(), std::back_inserter(unset.pages), isUnset);
    return std::all_of(unset.pages.begin(), unset.pages.end(), isKept) ? Result() : saveDraft(unset, file.path());
}

void setEditedRows(Draft& draft, const FolderItem& draftFile, const FolderItem& file) {
    std::error_code error;
    const auto kept = std::filesystem::last_write_time(file.path(), error);
    if (error || std::filesystem::last_write_time(draftFile.path(), error) < kept)
        return;
    const auto rows = keptRows(file);
    const bool hasLast =
        std::any_of(draft.pages.begin(), draft.pages.end(), [](const DraftPage& row) { return !row.last.empty(); });
    for (DraftPage& row : draft.pages) {
        const auto found = rows.find(row.page);
        if (found == rows.end() || !isUnset(row) || !isEdited(row, found->second, hasLast))
            continue;
        row.state = PageState::Set;
        row.confidence = kSure;
    }
}

} // namespace velmarin
