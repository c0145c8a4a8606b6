#include "store/GroupList.h"

#include <utility>

namespace velmarin {

std::vector<GroupRow> listGroups(const FolderItem& dictionaryFolder) {
    std::vector<GroupRow> rows;
    for (const FolderItem& item : dictionaryFolder.items()) {
        FolderItem folder = item.resolved();
        if (folder.Visible() && folder.Directory())
            rows.push_back({item.Name(), std::move(folder)});
    }
    return rows;
}

} // namespace velmarin
