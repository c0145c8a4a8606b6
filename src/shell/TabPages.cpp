#include "shell/TabPages.h"

#include "search/GroupModel.h"
#include "search/PageTabs.h"

namespace velmarin {

bool TabPages::hasTab(int tab) const {
    return tabs_.hasTab(tab) && !group_.pDictionaryItem.empty();
}

void TabPages::mNextBack(int direction, int tab) {
    tabs_.mNextBack(direction, tab);
}

void TabPages::mUpDown(int direction, int tab) {
    tabs_.mUpDown(direction, tab);
}

} // namespace velmarin
