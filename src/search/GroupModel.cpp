#include "search/GroupModel.h"

#include "text/NilObjectException.h"
#include "text/NumberText.h"

namespace velmarin {

void GroupModel::leave() {
    pDictionaryItem.clear();
    pDictionaryGroupFolder = FolderItem();
    pDicGroupName.clear();
    preferencesRead = true;
}

std::shared_ptr<DictionaryItem> GroupModel::dictionary(int index) const {
    if (!hasDictionary(index))
        throw NilObjectException("There is no dictionary number " + Str(index) + " in this group.");
    return pDictionaryItem[static_cast<std::size_t>(index)];
}

} // namespace velmarin
