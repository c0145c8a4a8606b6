#include "side/SwitchControls.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/FittedText.h"
#include "controls/PopupMenu.h"
#include "side/SourceTable.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QStyle>

namespace velmarin {

namespace {

constexpr Anchors kLeftBottom = Anchor::Left | Anchor::Bottom;
constexpr Anchors kAcrossBottom = Anchor::Left | Anchor::Right | Anchor::Bottom;

QCheckBox* makeCheckBox(const char* name, const char* caption, const QRect& place, QWidget* window,
                        AnchoredLayout& layout) {
    auto* box = new QCheckBox(QLatin1String(caption), window);
    box->setObjectName(QLatin1String(name));
    box->setFocusPolicy(Qt::TabFocus);
    const int indicator = box->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, box) +
                          box->style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, box);
    box->setFont(fontForWidth(fontForHeight(box->font(), place.height()), box->text(), place.width() - indicator));
    layout.add(box, place, kLeftBottom);
    return box;
}

void makeSeparator(int number, const QRect& place, Anchors anchors, QWidget* window, AnchoredLayout& layout) {
    auto* line = new QFrame(window);
    line->setObjectName(QStringLiteral("Sep.%1").arg(number));
    line->setFrameShape(place.width() > place.height() ? QFrame::HLine : QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    layout.add(line, place, anchors);
}

void makeUserDictionaryLabel(QWidget* buddy, QWidget* window, AnchoredLayout& layout) {
    auto* StaticText1 = new QLabel(QStringLiteral("User Dic."), window);
    StaticText1->setObjectName(QStringLiteral("StaticText1"));
    StaticText1->setToolTip(QStringLiteral("To make a user dictionary, you have to prepare data with format \"head "
                                           "word + tab + meaning + return\"."));
    StaticText1->setFont(fontForWidth(StaticText1->font(), StaticText1->text(), 66));
    StaticText1->setBuddy(buddy);
    layout.add(StaticText1, QRect(20, 659, 72, 20), kLeftBottom);
}

} // namespace

SwitchControls::SwitchControls(QWidget* window, AnchoredLayout& layout)
    : SyncronizeCB(makeCheckBox("SyncronizeCB", "Synchronized search", QRect(20, 608, 179, 20), window, layout)),
      DontClearCB(
          makeCheckBox("DontClearCB", "I clear the result by myself.", QRect(20, 630, 207, 20), window, layout)) {
    SyncronizeCB->setToolTip(QStringLiteral("On this window the same word will be seached as on the maindow."));
    DontClearCB->setToolTip(QStringLiteral("The contents of this window will never be deleted automatically."));
    for (const SourceRow& source : sourceTable()) {
        const auto& [left, top, width, height] = source.place;
        sources.push_back(
            makeCheckBox(source.checkBox, source.caption, QRect(left, top, width, height), window, layout));
        sources.back()->setChecked(source.isOnByDefault);
    }
    UserDicBT = new BevelButton("Make", window);
    UserDicBT->setObjectName(QStringLiteral("UserDicBT"));
    UserDicBT->setAccessibleName(QStringLiteral("Make a user dictionary"));
    layout.add(UserDicBT, QRect(87, 656, 67, 22), kLeftBottom);
    UserDicPU = new PopupMenu(window);
    UserDicPU->setObjectName(QStringLiteral("UserDicPU"));
    layout.add(UserDicPU, QRect(231, 656, 112, 20), kLeftBottom);
    makeUserDictionaryLabel(UserDicPU, window, layout);
    makeSeparator(0, QRect(0, 601, 350, 2), kAcrossBottom, window, layout);
    makeSeparator(1, QRect(219, 603, 8, 49), kLeftBottom, window, layout);
    makeSeparator(2, QRect(0, 651, 350, 2), kAcrossBottom, window, layout);

    // Tab follows the screen, not the order of the answers.
    QWidget::setTabOrder(sources[sourceRow("LatinCB")], sources[sourceRow("DicAppCB")]);
    QWidget::setTabOrder(UserDicBT, sources[sourceRow("UserDicCB")]);
}

} // namespace velmarin
