#include "search/HitList.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/PlainToolTip.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "search/PageDeck.h"
#include "view/SmartCanvas.h"

namespace velmarin {

namespace {

const QString kMessageAboutThePage = QStringLiteral("Message about the page");
constexpr QRect kSilentInfo{11, 804, 803, 8};
constexpr QRect kSpeakingInfo{11, 784, 803, 20};

} // namespace

HitList::HitList(WindowState& state, PageDeck& deck, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), state_(state), deck_(deck), layout_(layout), LB_(new ListBox(parent)),
      InfoST_(new QLabel(parent)) {
    LB_->setObjectName(QStringLiteral("LB"));
    LB_->setAccessibleName(QStringLiteral("Hits"));
    LB_->setAccessibleDescription(QStringLiteral("One dictionary a row"));
    // A click shows a hit and leaves the focus in the search field; Tab still reaches the list.
    LB_->setFocusPolicy(Qt::TabFocus);
    LB_->hide();
    layout.add(LB_, QRect(5, 52, 140, 740), Anchor::Left | Anchor::Top | Anchor::Bottom);
    InfoST_->setObjectName(QStringLiteral("InfoST"));
    InfoST_->setAccessibleDescription(kMessageAboutThePage);
    InfoST_->setTextFormat(Qt::PlainText);
    InfoST_->setStyleSheet(QStringLiteral("QLabel { color: #ff0000 }"));
    layout.add(InfoST_, kSilentInfo, Anchor::Left | Anchor::Right | Anchor::Bottom);
    connect(LB_, &ListBox::Change, this, &HitList::LB_Change);
}

void HitList::setInfo(const std::string& text, const std::string& reason) {
    InfoST_->setText(toQ(text));
    InfoST_->setToolTip(plainToolTip(toQ(reason.empty() ? text : text + "\n" + reason)));
    InfoST_->setAccessibleDescription(reason.empty() ? kMessageAboutThePage : toQ(reason));
    InfoST_->setAutoFillBackground(!text.empty());
    layout_.setRect(InfoST_, text.empty() ? kSilentInfo : kSpeakingInfo);
    InfoST_->raise();
    InfoST_->repaint();
}

void HitList::LB_Change() {
    setInfo("");
    const int row = LB_->ListIndex();
    if (LB_->SelCount() != 1 || row < 0 || row >= static_cast<int>(state_.pHiteItems.size()))
        return;
    showHit(HitItem(state_.pHiteItems[static_cast<std::size_t>(row)]));
}

void HitList::showHit(const HitItem& hit) {
    const ControlSet& target = deck_.set(0);
    target.BVjump->DeleteAllRows();
    target.describePage({}, {}, {});
    deck_.showErrata(0, {});
    state_.pListMode_CurrentDicNum = hit.DictionaryNumber;
    deck_.TB()->setCaption(0, hit.DictionaryName);
    const std::shared_ptr<DictionaryItem> item = state_.dictionary(hit.DictionaryNumber);
    target.MainCanvas->setMode(target.BVimage->MenuValue());
    const bool shown = target.MainCanvas->SetPicture(item->ImageFolder.Child(hit.ImageName));
    // A word that sorts before the first entry has no page, so that no file is at fault.
    const std::string problem = hit.ImageName.empty() ? std::string() : target.MainCanvas->loadProblem();
    if (!shown) {
        setInfo("We cant finde the picture. This dictionary has some probleme: " + hit.DictionaryName,
                problem.empty() ? problem : hit.ImageName + ": " + problem);
        target.MainCanvas->dropImage();
    }
    target.MainCanvas->Refresh();
    deck_.mMakeBVjump(hit.DictionaryNumber);
    target.BVjump->setMenuValue(item->ImageDictionary.value(hit.ImageName));
    target.describePage(hit.DictionaryName, deck_.pageTitle(*item, hit.ImageName, 0), problem);
    deck_.showErrata(0, hit.PageImageName);
}

} // namespace velmarin
