#include "search/PageTabs.h"

#include "search/PageCursor.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"

#include <utility>

namespace velmarin {

namespace {

constexpr const char* kFirstCaption = "Tab 0";

} // namespace

void PageTabs::showIn(TabDisplay& display) {
    display_ = &display;
    addTab(kFirstCaption);
}

const PageTab& PageTabs::tab(int index) const {
    if (!hasTab(index))
        throw NilObjectException("There is no tab number " + Str(index) + " in this window.");
    return tabs_[static_cast<std::size_t>(index)];
}

PageTab& PageTabs::tab(int index) {
    return const_cast<PageTab&>(std::as_const(*this).tab(index));
}

void PageTabs::reset() {
    front_ = 0;
    pListMode_CurrentDicNum_ = 0;
    tabs_.erase(tabs_.begin() + 1, tabs_.end());
    display_->removeLaterTabs();
    tabs_.front().reset();
    setCaption(0, kFirstCaption);
    setFailure(0, "");
}

void PageTabs::mMakeNewTB(const DictionaryItem& item) {
    addTab(item.name);
}

void PageTabs::mMakeBVjump(int dicIndex) {
    PageTab& target = tab(group_.pListMode ? 0 : dicIndex);
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(dicIndex);
    item->ImageDictionary.clear();
    item->ImageNameArray.clear();
    target.setJumpRows({});
    target.enablePaging(false);
    PageList pages = readPageList(item->ImageFolder);
    for (std::size_t i = 0; i < pages.names.size(); ++i)
        item->ImageDictionary.set(pages.names[i], static_cast<int>(i));
    item->ImageNameArray = std::move(pages.names);
    target.setJumpRows(std::move(pages.captions));
    target.enablePaging(!item->ImageNameArray.empty());
}

void PageTabs::dropPage(int tabIndex) {
    tab(tabIndex).dropPage();
    tab(tabIndex).refresh();
}

void PageTabs::mSetPicture(const std::string& name, int tabIndex, bool addToHistory) {
    PageTab& target = tab(tabIndex);
    if (name.empty() || equalStrings(name, target.pageName()))
        return;
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(shownDictionary(tabIndex));
    const PageOutcome outcome = target.load(item->ImageFolder.Child(name), item->ImageMode);
    if (outcome.shown) {
        target.setJumpValue(item->ImageDictionary.value(name));
        target.setPageName(name);
    } else {
        target.showNoPicture();
    }
    target.describe(item->name, target.titleOf(*item, name), outcome.problem);
    // The tab's own dictionary remembers the page, also if list mode shows another one.
    if (outcome.shown && addToHistory)
        target.remember(*group_.dictionary(tabIndex), name);
}

void PageTabs::mNextBack(int direction, int tabIndex) {
    if (!tab(front_).hasPage() || !group_.hasDictionary(shownDictionary(tabIndex)))
        return;
    PageTab& target = tab(tabIndex);
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(shownDictionary(tabIndex));
    const auto place = steppedPage(direction, target.jumpValue(), static_cast<int>(item->ImageNameArray.size()));
    if (!place)
        return;
    target.setJumpValue(*place);
    const std::string name = item->ImageNameArray[static_cast<std::size_t>(*place)];
    mSetPicture(name, tabIndex, true);
}

void PageTabs::mUpDown(int direction, int tabIndex) {
    tab(tabIndex).scroll(direction);
}

void PageTabs::BVjump_Action(int tabIndex, int row) {
    tab(tabIndex).setJumpValue(row);
    // The tab's own number, in list mode too: menu and list agree there only for the first dictionary.
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(tabIndex);
    const auto place = static_cast<std::size_t>(row);
    if (place < item->ImageNameArray.size()) {
        const std::string name = item->ImageNameArray[place];
        mSetPicture(name, tabIndex, true);
    }
}

void PageTabs::BVHistory_Action(int tabIndex, int row) {
    PageTab& target = tab(tabIndex);
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(tabIndex);
    target.setHistoryValue(row);
    if (row < kHistoryRowsBeforePages) {
        if (!item->ImageHistory.empty())
            target.forgetHistory(*item);
        return;
    }
    const auto place = static_cast<std::size_t>(row - kHistoryRowsBeforePages);
    if (place < item->ImageHistory.size()) {
        const std::string name = item->ImageHistory[place];
        mSetPicture(name, tabIndex, false);
    }
}

void PageTabs::BVErrata_Action(int tabIndex, int row) {
    display_->openErratum(group_.dictionary(tabIndex)->PageImageFi.Child(tab(tabIndex).erratum(row)), front_);
}

void PageTabs::BVimage_Action(int tabIndex, int row) {
    group_.dictionary(tabIndex)->ImageMode = row;
    tab(tabIndex).chooseFit(row);
}

void PageTabs::ImageHistory_Action(int direction) {
    if (!group_.hasDictionary(front_))
        return;
    const std::shared_ptr<DictionaryItem> item = group_.dictionary(front_);
    PageTab& target = tab(front_);
    const auto value = steppedHistory(direction, target.historyValue(), static_cast<int>(item->ImageHistory.size()));
    if (!value)
        return;
    target.setHistoryValue(*value);
    const std::string name = item->ImageHistory[static_cast<std::size_t>(*value - kHistoryRowsBeforePages)];
    mSetPicture(name, front_, false);
}

void PageTabs::TabBackNext_Action(int direction) {
    bringToFront((front_ + (direction != 0 ? 1 : count() - 1)) % count());
}

void PageTabs::TabTopTail_Action(int direction) {
    bringToFront(direction != 0 ? count() - 1 : 0);
}

void PageTabs::bringToFront(int index) {
    front_ = index;
    display_->bringTabToFront(index);
}

} // namespace velmarin
