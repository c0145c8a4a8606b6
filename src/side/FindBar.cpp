#include "side/FindBar.h"

#include "controls/AnchoredLayout.h"
#include "controls/Artwork.h"
#include "controls/BevelButton.h"
#include "controls/Cursors.h"
#include "controls/DevicePixels.h"
#include "controls/FittedText.h"
#include "side/ColorRect.h"

#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace velmarin {

namespace {

const QColor kRectFill(0xE6, 0xE6, 0xE6);
const QColor kRectBorder(0x66, 0x66, 0x66);
const QColor kEntryBackground(0xF0, 0xFF, 0xFC);
const QColor kMissColor(0x66, 0x66, 0x66);
const QColor kSelectedBackground(0xBF, 0xDD, 0xFF);
constexpr int kClearButton = 16;
constexpr int kTargetPicture = 20;
constexpr int kClearPicture = 12;

/// The background of the find bar.
class RoundRect : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr qreal kRound = 8;
        QPainter painter(this);
        const DevicePixels device(painter);
        painter.setRenderHint(QPainter::Antialiasing);
        const int line = device.length(1);
        painter.setPen(QPen(kRectBorder, line));
        painter.setBrush(kRectFill);
        const qreal half = line / 2.0;
        painter.drawRoundedRect(QRectF(device.rect(rect())).adjusted(half, half, -half, -half), kRound * line,
                                kRound * line);
    }
};

QIcon icon(QPixmap (*picture)(QSize, qreal), int side) {
    QIcon icon;
    for (const qreal ratio : {1.0, 2.0, 3.0})
        icon.addPixmap(picture(QSize(side, side), ratio));
    return icon;
}

} // namespace

FindBar::FindBar(SelectColor selectColor, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), selectColor_(std::move(selectColor)), FindRect_(new RoundRect(parent)),
      FindBV_(new BevelButton(parent)), FindEF_(new QLineEdit(parent)), FindClBV_(new BevelButton(parent)),
      FindColorRect_(new ColorRect(parent)) {
    placeControls(layout);
    showTarget(FindTarget::Find);
    for (QWidget* watched : {static_cast<QWidget*>(FindEF_), static_cast<QWidget*>(FindBV_),
                             static_cast<QWidget*>(FindClBV_), static_cast<QWidget*>(FindColorRect_)})
        watched->installEventFilter(this);
    connect(FindEF_, &QLineEdit::textChanged, this, &FindBar::FindEF_TextChange);
    connect(FindBV_, &BevelButton::clicked, this, [this] {
        emit findRequested();
        selectWord();
    });
    connect(FindClBV_, &BevelButton::clicked, this, &FindBar::clearRequested);
    connect(FindColorRect_, &ColorRect::clicked, this, &FindBar::FindColorRect_MouseUp);
}

void FindBar::placeControls(AnchoredLayout& layout) {
    const Anchors across = Anchor::Left | Anchor::Right | Anchor::Bottom;
    FindRect_->setObjectName(QStringLiteral("FindRect"));
    FindRect_->setToolTip(
        QStringLiteral("To switch the object of seach, use \"command + F\" (for the window) and \"command + D\" "
                       "(for dictionaries)."));
    layout.add(FindRect_, QRect(104, 557, 244, 38), across);

    FindBV_->setObjectName(QStringLiteral("FindBV"));
    FindBV_->setIconSize(QSize(kTargetPicture, kTargetPicture));
    FindBV_->setEnabled(false);
    layout.add(FindBV_, QRect(112, 565, 24, 24), Anchor::Left | Anchor::Bottom);

    FindEF_->setObjectName(QStringLiteral("FindEF"));
    FindEF_->setAccessibleName(QStringLiteral("Word to find or to look up"));
    FindEF_->setTextMargins(0, 0, kClearButton + 2, 0);
    QPalette palette = FindEF_->palette();
    palette.setColor(QPalette::Base, kEntryBackground);
    FindEF_->setPalette(palette);
    showMiss(false);
    layout.add(FindEF_, QRect(138, 564, 185, 25), across);

    FindClBV_->setObjectName(QStringLiteral("FindClBV"));
    FindClBV_->setAccessibleName(QStringLiteral("Empty the word"));
    FindClBV_->setIconSize(QSize(kClearPicture, kClearPicture));
    FindClBV_->setIcon(icon(Close, kClearPicture));
    FindClBV_->setEnabled(false);
    layout.add(FindClBV_, QRect(306, 569, kClearButton, kClearButton), Anchor::Right | Anchor::Bottom);

    FindColorRect_->setObjectName(QStringLiteral("FindColorRect"));
    FindColorRect_->setAccessibleName(QStringLiteral("Color of what is found"));
    layout.add(FindColorRect_, QRect(327, 568, 16, 16), Anchor::Right | Anchor::Bottom);
}

void FindBar::showTarget(FindTarget target) {
    const bool looksUp = target == FindTarget::LookUp;
    FindBV_->setIcon(icon(looksUp ? DicApp : Find, kTargetPicture));
    const QString meaning = looksUp ? QStringLiteral("Look the word up") : QStringLiteral("Find the word in the text");
    FindBV_->setAccessibleName(meaning);
    FindBV_->setToolTip(meaning);
}

void FindBar::showWord(const QString& word) {
    if (word.isEmpty())
        FindEF_->clear(); // unlike an empty text this can be undone
    else
        FindEF_->setText(word);
}

void FindBar::showMiss(bool missed) {
    QPalette palette = FindEF_->palette();
    // After a step the word is selected, and must show the color as well.
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::HighlightedText})
        palette.setColor(role, missed ? kMissColor : QColor(Qt::black));
    palette.setColor(QPalette::Highlight, kSelectedBackground);
    FindEF_->setPalette(palette);
}

void FindBar::selectWord() {
    FindEF_->selectAll();
    FindEF_->setFocus();
}

void FindBar::FindEF_TextChange(const QString& word) {
    FindBV_->setEnabled(!word.isEmpty());
    FindClBV_->setEnabled(!word.isEmpty());
    emit wordChanged(word);
}

void FindBar::FindColorRect_MouseUp() {
    if (const auto selected = selectColor_(FindColorRect_->FillColor()))
        emit colorSelected(*selected);
}

bool FindBar::FindEF_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        emit findRequested();
        selectWord();
        return true;
    }
    if (key == Qt::Key_Tab && (modifiers & Qt::ControlModifier) == 0) {
        emit leaveRequested();
        return true;
    }
    return false;
}

void FindBar::setCursorOf(QWidget* control, bool entered) {
    if (!entered)
        control->setCursor(Qt::SizeAllCursor);
    else if (control == FindColorRect_ || control->isEnabled())
        control->setCursor(IndCursor(control->devicePixelRatioF()));
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != FindEF_) {
        if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
            setCursorOf(static_cast<QWidget*>(watched), event->type() == QEvent::Enter);
        return QObject::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (FindEF_KeyDown(key->key(), key->modifiers()))
            return true;
        break;
    }
    case QEvent::FocusIn:
        emit focusChanged(true);
        break;
    case QEvent::FocusOut:
        emit focusChanged(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace velmarin
