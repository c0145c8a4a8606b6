#include "search/PageDeck.h"

#include "controls/BevelButton.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "search/PageCursor.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "view/SmartCanvas.h"

namespace velmarin {

PageDeck::PageDeck(WindowState& state, Host& host, QWidget* parent)
    : QObject(parent), state_(state), host_(host), TB_(new TabPanel(parent)) {
    TB_->setObjectName(QStringLiteral("TB"));
    TB_->setAccessibleName(QStringLiteral("Dictionaries"));
    addSet(TB_->insertPanel(0, "Tab 0"));
}

const ControlSet& PageDeck::set(int index) const {
    if (index < 0 || index >= setCount())
        throw NilObjectException("There is no tab number " + Str(index) + " in this window.");
    return sets_[static_cast<std::size_t>(index)];
}

void PageDeck::addSet(QWidget* panel) {
    const int index = setCount();
    sets_.push_back(ControlSet::make(index, panel, host_));
    const ControlSet& made = sets_.back();
    connect(made.BVback, &BevelButton::clicked, this, [this, index] { mNextBack(0, index); });
    connect(made.BVnext, &BevelButton::clicked, this, [this, index] { mNextBack(1, index); });
    connect(made.BVup, &BevelButton::clicked, this, [this, index] { mUpDown(0, index); });
    connect(made.BVdown, &BevelButton::clicked, this, [this, index] { mUpDown(1, index); });
    connect(made.BVjump, &BevelButton::rowChosen, this, [this, index] { BVjump_Action(index); });
    connect(made.BVHistory, &BevelButton::rowChosen, this, [this, index] { BVHistory_Action(index); });
    connect(made.BVErrata, &BevelButton::rowChosen, this, [this, index] { BVErrata_Action(index); });
    connect(made.BVimage, &BevelButton::rowChosen, this, [this, index] { BVimage_Action(index); });
}

void PageDeck::reset() {
    for (int last = TB_->PanelCount() - 1; last > 0; --last)
        TB_->removePanel(last);
    sets_.resize(1);
    sets_.front().reset();
    TB_->setCaption(0, "Tab 0");
}

void PageDeck::mMakeNewTB(const DictionaryItem& item) {
    addSet(TB_->insertPanel(TB_->PanelCount(), item.name));
}

void PageDeck::mMakeBVjump(int dicIndex) {
    const ControlSet& target = set(state_.pListMode ? 0 : dicIndex);
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(dicIndex);
    item->ImageDictionary.clear();
    item->ImageNameArray.clear();
    target.BVjump->DeleteAllRows();
    target.enablePaging(false);
    PageList pages = readPageList(item->ImageFolder);
    for (std::size_t i = 0; i < pages.names.size(); ++i)
        item->ImageDictionary.set(pages.names[i], static_cast<int>(i));
    item->ImageNameArray = std::move(pages.names);
    target.BVjump->setRows(std::move(pages.captions));
    target.enablePaging(!item->ImageNameArray.empty());
}

void PageDeck::mSetPicture(const std::string& name, int tabIndex, bool addToHistory) {
    const ControlSet& target = set(tabIndex);
    if (name.empty() || equalStrings(name, fromQ(target.ImageNameST->text())))
        return;
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(state_.shownDictionary(tabIndex));
    target.MainCanvas->setMode(item->ImageMode);
    if (!target.MainCanvas->SetPicture(item->ImageFolder.Child(name))) {
        target.MainCanvas->setExtraText("No Picture");
        target.MainCanvas->mDrawExtraText();
        target.describePage(item->name, pageTitle(*item, name, tabIndex), target.MainCanvas->loadProblem());
        return;
    }
    target.BVjump->setMenuValue(item->ImageDictionary.value(name));
    target.ImageNameST->setText(toQ(name));
    target.describePage(item->name, pageTitle(*item, name, tabIndex), target.MainCanvas->loadProblem());
    if (addToHistory) {
        // The tab's own dictionary remembers the page, also where list mode shows another one.
        std::vector<std::string>& history = state_.dictionary(tabIndex)->ImageHistory;
        target.BVHistory->AddRow(name);
        history.push_back(name);
        target.BVHistory->setMenuValue(static_cast<int>(history.size()) - 1 + kHistoryRowsBeforePages);
    }
}

std::string PageDeck::pageTitle(const DictionaryItem& item, const std::string& name, int tabIndex) const {
    if (!item.ImageDictionary.has(name))
        return name;
    const std::string caption = set(tabIndex).BVjump->List(item.ImageDictionary.value(name));
    return caption == name ? name : caption + ", " + name;
}

void PageDeck::mNextBack(int direction, int tabIndex) {
    if (!set(TB_->Value()).MainCanvas->hasImage() || !state_.hasDictionary(state_.shownDictionary(tabIndex)))
        return;
    const ControlSet& target = set(tabIndex);
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(state_.shownDictionary(tabIndex));
    const auto place =
        steppedPage(direction, target.BVjump->MenuValue(), static_cast<int>(item->ImageNameArray.size()));
    if (!place)
        return;
    target.BVjump->setMenuValue(*place);
    const std::string name = item->ImageNameArray[static_cast<std::size_t>(*place)];
    mSetPicture(name, tabIndex, true);
}

void PageDeck::mUpDown(int direction, int tabIndex) {
    set(tabIndex).MainCanvas->mJumpScroll_vertical(direction);
}

void PageDeck::showErrata(int tabIndex, const std::vector<std::string>& names) {
    BevelButton* menu = set(tabIndex).BVErrata;
    menu->DeleteAllRows();
    for (const std::string& name : names)
        menu->AddRow(name);
    menu->setEnabled(!names.empty());
}

void PageDeck::BVjump_Action(int index) {
    // The button's own number, in list mode too: menu and list agree there only for the first dictionary.
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(index);
    const auto place = static_cast<std::size_t>(set(index).BVjump->MenuValue());
    if (place < item->ImageNameArray.size()) {
        const std::string name = item->ImageNameArray[place];
        mSetPicture(name, index, true);
    }
}

void PageDeck::BVHistory_Action(int index) {
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(index);
    const int value = set(index).BVHistory->MenuValue();
    if (value < kHistoryRowsBeforePages) {
        if (!item->ImageHistory.empty()) {
            set(index).resetHistory();
            item->ImageHistory.clear();
        }
        return;
    }
    const auto place = static_cast<std::size_t>(value - kHistoryRowsBeforePages);
    if (place < item->ImageHistory.size()) {
        const std::string name = item->ImageHistory[place];
        mSetPicture(name, index, false);
    }
}

void PageDeck::BVErrata_Action(int index) {
    const BevelButton* menu = set(index).BVErrata;
    emit errataChosen(state_.dictionary(index)->PageImageFi.Child(menu->List(menu->MenuValue())), TB_->Value());
}

void PageDeck::BVimage_Action(int index) {
    const ControlSet& target = set(index);
    const int mode = target.BVimage->MenuValue();
    state_.dictionary(index)->ImageMode = mode;
    target.MainCanvas->setMode(mode);
    target.MainCanvas->Refresh();
}

void PageDeck::ImageHistory_Action(int direction) {
    const int tab = TB_->Value();
    if (!state_.hasDictionary(tab))
        return;
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(tab);
    BevelButton* menu = set(tab).BVHistory;
    const auto value = steppedHistory(direction, menu->MenuValue(), static_cast<int>(item->ImageHistory.size()));
    if (!value)
        return;
    menu->setMenuValue(*value);
    const std::string name = item->ImageHistory[static_cast<std::size_t>(*value - kHistoryRowsBeforePages)];
    mSetPicture(name, tab, false);
}

void PageDeck::TabBackNext_Action(int direction) {
    const int count = TB_->PanelCount();
    if (count > 1)
        TB_->setValue((TB_->Value() + (direction != 0 ? 1 : count - 1)) % count);
}

void PageDeck::TabTopTail_Action(int direction) {
    TB_->setValue(direction != 0 ? TB_->PanelCount() - 1 : 0);
}

} // namespace velmarin
