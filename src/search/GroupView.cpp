#include "search/GroupView.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/TabPanel.h"
#include "search/GroupPicks.h"
#include "search/HitList.h"
#include "search/PageDeck.h"
#include "search/QueryBar.h"
#include "text/NilObjectException.h"

namespace velmarin {

void GroupView::read(const FolderItem& group) {
    leave();
    Group read = readGroup(group, [this] { host_.Yield(); });
    // Only now: a group that was read in part must not be written back.
    state_.pDictionaryGroupFolder = group;
    state_.pDicGroupName = read.groupName;
    state_.pDictionaryItem = std::move(read.dictionaries);
    complete_ = read.failures.empty();
    queryBar_.SeparatelyCB()->setChecked(read.separately);
}

void GroupView::mInitialize() {
    deck_.reset();
    if (static_cast<int>(state_.pDictionaryItem.size()) >= kFewestForList)
        showInList();
    else if (!showInTabs())
        complete_ = false;
    if (!complete_)
        throw NilObjectException("A dictionary of this group could not be read.");
}

void GroupView::leave() {
    state_.leaveGroup();
    state_.pDicGroupName.clear();
    deck_.reset();
}

void GroupView::showInList() {
    state_.pListMode = true;
    for (const auto& item : state_.pDictionaryItem) {
        hitList_.LB()->AddRow(item->name);
        item->ImageMode = kListModeImageMode;
    }
    deck_.set(0).BVimage->setMenuValue(kListModeImageMode);
    const QRect list = layout_.rect(hitList_.LB());
    QRect tabs = layout_.rect(deck_.TB());
    tabs.setLeft(list.x() + list.width() + 5);
    layout_.setRect(deck_.TB(), tabs);
    hitList_.LB()->show();
}

bool GroupView::showInTabs() {
    bool complete = true;
    for (int i = 0; i < static_cast<int>(state_.pDictionaryItem.size()); ++i) {
        const DictionaryItem& item = *state_.pDictionaryItem[static_cast<std::size_t>(i)];
        if (i == 0)
            deck_.TB()->setCaption(0, item.name);
        else
            deck_.mMakeNewTB(item);
        try {
            deck_.mMakeBVjump(i);
        } catch (const NilObjectException&) {
            // One dictionary without pages does not take the tabs of the others with it.
            complete = false;
        }
        deck_.set(i).BVimage->setMenuValue(item.ImageMode);
    }
    return complete;
}

} // namespace velmarin
