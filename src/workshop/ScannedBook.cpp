#include "workshop/ScannedBook.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace velmarin {

namespace {

std::unordered_map<std::string, const DraftPage*> rowsByPage(const Draft& draft) {
    std::unordered_map<std::string, const DraftPage*> rows;
    for (const DraftPage& row : draft.pages)
        rows.emplace(row.page, &row);
    return rows;
}

/// A row of a page that was not read when the draft was saved.
bool isEmpty(const DraftPage& row) {
    return row.state == PageState::Doubtful && row.first.empty() && row.last.empty();
}

} // namespace

ScannedBook::ScannedBook(std::unique_ptr<BookFolder> folder)
    : folder_(std::move(folder)), pageFolder_(folder_->pageFolder()), known_(stateOfFile()) {}

ScannedBook::FileState ScannedBook::stateOfFile() const {
    const std::filesystem::path file = folder_->draftFile().path();
    FileState state;
    std::error_code error;
    state.changed = std::filesystem::last_write_time(file, error);
    state.size = std::filesystem::file_size(file, error);
    return state;
}

std::string ScannedBook::name() const {
    return folder_->folder().Name();
}

std::optional<int> ScannedBook::scanPage(const std::string& page) const {
    const BookPicture* found = readings_->page(page);
    return found == nullptr ? std::nullopt : std::optional(found->scanPage);
}

FolderItem ScannedBook::picture(const std::string& page) const {
    const BookPicture* found = readings_->page(page);
    if (found != nullptr)
        return found->picture;
    // Of a large book the readings take a while to load.
    const FolderItem picture = isMemberName(page) ? pageFolder_.Child(page) : FolderItem();
    return picture.Exists() ? picture : FolderItem();
}

Draft ScannedBook::mended(const Draft& draft) {
    std::vector<DraftPage> set;
    std::copy_if(draft.pages.begin(), draft.pages.end(), std::back_inserter(set),
                 [](const DraftPage& row) { return row.state == PageState::Set; });
    const auto rowsBefore = rowsByPage(draft), givenBefore = rowsByPage(mended_);
    Draft given = readings_->draft(set), result;
    for (const DraftPage& row : given.pages) {
        const auto before = rowsBefore.find(row.page), last = givenBefore.find(row.page);
        // Only what is another now, so that what was edited in a spreadsheet stays.
        const bool keep = before != rowsBefore.end() && !isEmpty(*before->second) &&
                          (last == givenBefore.end() || *last->second == row);
        result.pages.push_back(keep ? *before->second : row);
    }
    keepAddedColumns(draft, result);
    mended_ = std::move(given);
    return result;
}

Result ScannedBook::save(const Draft& draft) {
    Result saved = folder_->saveDraft(draft);
    known_ = stateOfFile();
    return saved;
}

std::optional<Draft> ScannedBook::changedOutside() {
    const FileState now = stateOfFile();
    if (now == known_)
        return std::nullopt;
    known_ = now;
    Draft draft;
    if (!folder_->loadDraft(draft))
        return std::nullopt;
    return draft;
}

} // namespace velmarin
