#include "side/UserDictionaryList.h"

#include <cstddef>
#include <utility>

namespace velmarin {

void UserDictionaryList::read(const FolderItem& folder, const std::function<void(const std::string& name)>& showRow,
                              const std::function<void()>& yield) {
    std::vector<FolderItem> folders;
    for (const FolderItem& link : folder.items()) {
        const FolderItem item = link.resolved();
        if (item.Visible() && item.Directory()) {
            folders.push_back(item);
            showRow(item.Name());
        }
        yield();
    }
    folders_ = std::move(folders);
    choose(row_);
}

void UserDictionaryList::choose(int row) {
    row_ = row >= 0 && static_cast<std::size_t>(row) < folders_.size() ? row : -1;
}

const FolderItem* UserDictionaryList::chosen() const {
    return row_ == -1 ? nullptr : &folders_[static_cast<std::size_t>(row_)];
}

} // namespace velmarin
