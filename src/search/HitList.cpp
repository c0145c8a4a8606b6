#include "search/HitList.h"

#include "controls/AnchoredLayout.h"
#include "controls/ListBox.h"
#include "controls/PlainToolTip.h"
#include "platform/QtText.h"
#include "search/HitModel.h"

#include <QSignalBlocker>

namespace velmarin {

namespace {

const QString kMessageAboutThePage = QStringLiteral("Message about the page");
constexpr QRect kSilentInfo{11, 804, 803, 8};
constexpr QRect kSpeakingInfo{11, 784, 803, 20};

} // namespace

HitList::HitList(HitModel& hits, QWidget* tabPanel, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), hits_(hits), layout_(layout), tabPanel_(tabPanel), LB_(new ListBox(parent)),
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
    connect(LB_, &ListBox::Change, this, [this] { hits_.LB_Change(LB_->ListIndex()); });
    hits_.showIn(*this);
}

void HitList::showList() {
    const QRect list = layout_.rect(LB_);
    QRect tabs = layout_.rect(tabPanel_);
    tabs.setLeft(list.x() + list.width() + 5);
    layout_.setRect(tabPanel_, tabs);
    LB_->show();
}

void HitList::clearRows() {
    LB_->DeleteAllRows();
}

void HitList::addRow(const std::string& text) {
    LB_->AddRow(text);
}

void HitList::selectRow(int row) {
    // The model already knows.
    const QSignalBlocker silent(LB_);
    LB_->setFocus();
    LB_->setListIndex(row);
}

void HitList::showInfo(const std::string& text, const std::string& reason) {
    InfoST_->setText(toQ(text));
    InfoST_->setToolTip(plainToolTip(toQ(reason.empty() ? text : text + "\n" + reason)));
    InfoST_->setAccessibleDescription(reason.empty() ? kMessageAboutThePage : toQ(reason));
    InfoST_->setAutoFillBackground(!text.empty());
    layout_.setRect(InfoST_, text.empty() ? kSilentInfo : kSpeakingInfo);
    InfoST_->raise();
    InfoST_->repaint();
}

} // namespace velmarin
