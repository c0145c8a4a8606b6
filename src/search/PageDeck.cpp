#include "search/PageDeck.h"

#include "controls/BevelButton.h"
#include "controls/TabPanel.h"
#include "files/FolderItem.h"
#include "search/ControlSet.h"
#include "search/PageTabs.h"
#include "view/SmartCanvas.h"

namespace velmarin {

PageDeck::PageDeck(PageTabs& tabs, Host& host, QWidget* parent)
    : QObject(parent), tabs_(tabs), host_(host), TB_(new TabPanel(parent)) {
    TB_->setObjectName(QStringLiteral("TB"));
    TB_->setAccessibleName(QStringLiteral("Dictionaries"));
    connect(TB_, &TabPanel::Change, this, [this] { tabs_.noteFront(TB_->Value()); });
    tabs_.showIn(*this);
}

PageDeck::~PageDeck() = default;

void PageDeck::scrollFront(bool down) {
    SmartCanvas* canvas = sets_[static_cast<std::size_t>(tabs_.front())]->MainCanvas;
    const int step = static_cast<int>(canvas->height() / 50.0);
    if (tabs_.tab(tabs_.front()).hasPage())
        canvas->SmartScroll(0, down ? -step : step);
}

PageDisplay& PageDeck::addTab(const std::string& caption) {
    const int index = TB_->PanelCount();
    sets_.push_back(std::make_unique<ControlSet>(index, TB_->insertPanel(index, caption), host_));
    connectSet(*sets_.back(), index);
    return *sets_.back();
}

void PageDeck::connectSet(const ControlSet& set, int index) {
    connect(set.BVback, &BevelButton::clicked, this, [this, index] { tabs_.mNextBack(0, index); });
    connect(set.BVnext, &BevelButton::clicked, this, [this, index] { tabs_.mNextBack(1, index); });
    connect(set.BVup, &BevelButton::clicked, this, [this, index] { tabs_.mUpDown(0, index); });
    connect(set.BVdown, &BevelButton::clicked, this, [this, index] { tabs_.mUpDown(1, index); });
    connect(set.BVjump, &BevelButton::rowChosen, this, [this, index](int row) { tabs_.BVjump_Action(index, row); });
    connect(set.BVHistory, &BevelButton::rowChosen, this,
            [this, index](int row) { tabs_.BVHistory_Action(index, row); });
    connect(set.BVErrata, &BevelButton::rowChosen, this, [this, index](int row) { tabs_.BVErrata_Action(index, row); });
    connect(set.BVimage, &BevelButton::rowChosen, this, [this, index](int row) { tabs_.BVimage_Action(index, row); });
}

void PageDeck::removeLaterTabs() {
    for (int last = TB_->PanelCount() - 1; last > 0; --last)
        TB_->removePanel(last);
    sets_.resize(1);
}

void PageDeck::setTabCaption(int tab, const std::string& caption) {
    TB_->setCaption(tab, caption);
}

void PageDeck::setTabFailure(int tab, const std::string& failure) {
    TB_->setNote(tab, failure);
}

void PageDeck::bringTabToFront(int tab) {
    TB_->setValue(tab);
}

void PageDeck::openErratum(const FolderItem& file, int frontTab) {
    emit errataChosen(file, frontTab);
}

} // namespace velmarin
