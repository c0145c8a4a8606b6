#include "workshop/ScannedBook.h"

#include <system_error>
#include <utility>

namespace velmarin {

ScannedBook::ScannedBook(std::unique_ptr<BookFolder> folder) : folder_(std::move(folder)), known_(stateOfFile()) {}

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

FolderItem ScannedBook::picture(const std::string& page) const {
    const BookPicture* found = readings_->page(page);
    return found != nullptr ? found->picture : FolderItem();
}

Result ScannedBook::save(const Draft& draft) {
    const Result saved = folder_->saveDraft(draft);
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
