#include "shell/DeckPages.h"

#include "search/PageDeck.h"

namespace velmarin {

bool DeckPages::hasTab(int tab) const {
    return tab < deck_.setCount() && !state_.pDictionaryItem.empty();
}

void DeckPages::mNextBack(int direction, int tab) {
    deck_.mNextBack(direction, tab);
}

void DeckPages::mUpDown(int direction, int tab) {
    deck_.mUpDown(direction, tab);
}

} // namespace velmarin
