#include "search/WindowState.h"

#include "text/NilObjectException.h"
#include "text/NumberText.h"

namespace velmarin {

void WindowState::leaveGroup() {
    pDictionaryItem.clear();
    pHiteItems.clear();
    pDictionaryGroupFolder = FolderItem();
    pListMode_CurrentDicNum = 0;
}

std::shared_ptr<DictionaryItem> WindowState::dictionary(int index) const {
    if (!hasDictionary(index))
        throw NilObjectException("There is no dictionary number " + Str(index) + " in this group.");
    return pDictionaryItem[static_cast<std::size_t>(index)];
}

} // namespace velmarin
