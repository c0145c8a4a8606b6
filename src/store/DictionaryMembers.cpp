#include "store/DictionaryMembers.h"

#include "files/FolderListing.h"

#include <algorithm>

namespace velmarin {

bool mSub_DicOrNot(const FolderItem& item) {
    if (item.Alias() || !item.Directory())
        return false;
    const FolderListing members(item);
    return std::any_of(kDictionaryMembers.begin(), kDictionaryMembers.end(),
                       [&](const char* name) { return members.has(name); });
}

} // namespace velmarin
