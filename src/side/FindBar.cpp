#include "side/FindBar.h"

#include "controls/AnchoredLayout.h"
#include "controls/Artwork.h"
#include "controls/Cursors.h"
#include "controls/DevicePixels.h"
#include "controls/QtText.h"

#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace velmarin {

namespace {

const QColor kRectFill(0xE6, 0xE6, 0xE6);
const QColor kRectBorder(0x66, 0x66, 0x66);
const QColor kEntryBackground(0xF0, 0xFF, 0xFC);
const QColor kMissColour(0x66, 0x66, 0x66);
const QColor kSelectedBackground(0xBF, 0xDD, 0xFF);
constexpr int kClearButton = 16;
constexpr int kTargetPicture = 20;
constexpr int kClearPicture = 12;

/// The ground of the find bar.
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

ColorRect::ColorRect(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::TabFocus);
}

void ColorRect::setFillColor(const QColor& colour) {
    fill_ = colour;
    update();
}

void ColorRect::paintEvent(QPaintEvent*) {
    constexpr qreal kBorder = 3;
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect all = device.rect(rect());
    const int border = device.length(kBorder);
    const QColor dark = hasFocus() ? palette().color(QPalette::Highlight) : QColor(0x80, 0x80, 0x80);
    painter.fillRect(all, dark);
    // The two light sides meet the dark ones on the diagonal.
    QPolygon light;
    light << all.bottomLeft() + QPoint(0, 1) << all.bottomRight() + QPoint(1, 1) << all.topRight() + QPoint(1, 0)
          << all.topRight() + QPoint(1 - border, border) << all.bottomLeft() + QPoint(border, 1 - border);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(light);
    painter.fillRect(all.adjusted(border, border, -border, -border), fill_);
}

void ColorRect::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void ColorRect::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed();
}

void ColorRect::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit pressed();
    else
        QWidget::keyPressEvent(event);
}

FindBar::FindBar(SelectColor selectColor, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), selectColor_(std::move(selectColor)), FindRect_(new RoundRect(parent)),
      FindBV_(new BevelButton(parent)), FindEF_(new QLineEdit(parent)), FindClBV_(new BevelButton(parent)),
      FindColorRect_(new ColorRect(parent)) {
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
    QPalette colours = FindEF_->palette();
    colours.setColor(QPalette::Base, kEntryBackground);
    FindEF_->setPalette(colours);
    showMiss(false);
    layout.add(FindEF_, QRect(138, 564, 185, 25), across);

    FindClBV_->setObjectName(QStringLiteral("FindClBV"));
    FindClBV_->setAccessibleName(QStringLiteral("Empty the word"));
    FindClBV_->setIconSize(QSize(kClearPicture, kClearPicture));
    FindClBV_->setIcon(icon(Close, kClearPicture));
    FindClBV_->setEnabled(false);
    layout.add(FindClBV_, QRect(306, 569, kClearButton, kClearButton), Anchor::Right | Anchor::Bottom);

    FindColorRect_->setObjectName(QStringLiteral("FindColorRect"));
    FindColorRect_->setAccessibleName(QStringLiteral("Colour of what is found"));
    layout.add(FindColorRect_, QRect(327, 568, 16, 16), Anchor::Right | Anchor::Bottom);

    setTarget(FindTarget::Find);
    for (QWidget* watched : {static_cast<QWidget*>(FindEF_), static_cast<QWidget*>(FindBV_),
                             static_cast<QWidget*>(FindClBV_), static_cast<QWidget*>(FindColorRect_)})
        watched->installEventFilter(this);
    connect(FindEF_, &QLineEdit::textChanged, this, &FindBar::FindEF_TextChange);
    connect(FindBV_, &BevelButton::clicked, this, [this] {
        emit run();
        selectWord();
    });
    connect(FindClBV_, &BevelButton::clicked, this, &FindBar::FindClBV_Action);
    connect(FindColorRect_, &ColorRect::pressed, this, &FindBar::FindColorRect_MouseUp);
}

void FindBar::setTarget(FindTarget target) {
    target_ = target;
    const bool looksUp = target == FindTarget::DicApp;
    FindBV_->setIcon(icon(looksUp ? DicApp : Find, kTargetPicture));
    const QString meaning = looksUp ? QStringLiteral("Look the word up") : QStringLiteral("Find the word in the text");
    FindBV_->setAccessibleName(meaning);
    FindBV_->setToolTip(meaning);
}

void FindBar::showMiss(bool missed) {
    QPalette colours = FindEF_->palette();
    // A step leaves the word selected, and its colour must show all the same.
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::HighlightedText})
        colours.setColor(role, missed ? kMissColour : QColor(Qt::black));
    colours.setColor(QPalette::Highlight, kSelectedBackground);
    FindEF_->setPalette(colours);
}

void FindBar::selectWord() {
    FindEF_->selectAll();
    FindEF_->setFocus();
}

void FindBar::FindEF_TextChange() {
    const bool any = !FindEF_->text().isEmpty();
    FindBV_->setEnabled(any);
    FindClBV_->setEnabled(any);
    showMiss(false);
    emit wordChanged();
}

void FindBar::FindClBV_Action() {
    FindEF_->clear();
    showMiss(false);
    emit cleared();
}

void FindBar::FindColorRect_MouseUp() {
    if (const auto chosen = selectColor_(FindColorRect_->FillColor()))
        FindColorRect_->setFillColor(*chosen);
}

bool FindBar::FindEF_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        emit run();
        selectWord();
        return true;
    }
    if (key == Qt::Key_Tab && (modifiers & Qt::ControlModifier) == 0) {
        emit leave();
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
        emit focused(true);
        break;
    case QEvent::FocusOut:
        emit focused(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace velmarin
