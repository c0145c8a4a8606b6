#include "controls/BevelButton.h"

#include "controls/BevelButtonAccessible.h"
#include "controls/FittedText.h"
#include "controls/MenuPopup.h"
#include "controls/PlainToolTip.h"
#include "controls/QtText.h"
#include "controls/RowModel.h"

#include <QAccessible>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int sidePadding = 3;
constexpr int arrowWidth = 7;
constexpr int arrowRoom = arrowWidth + 3; // and the gap between it and the text

} // namespace

BevelButton::BevelButton(std::string_view caption, QWidget* parent)
    : QAbstractButton(parent), rows_(new RowModel(this)) {
    installBevelButtonAccessibility();
    setCaption(caption);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, [this] { update(); });
}

BevelButton::BevelButton(QWidget* parent) : BevelButton(std::string_view(), parent) {}

BevelButton::~BevelButton() {
    delete popup_;
}

std::string BevelButton::Caption() const {
    return fromQ(text());
}

void BevelButton::setCaption(std::string_view caption) {
    // An ampersand in a name is no shortcut.
    const QString text = toQ(caption);
    if (text == this->text())
        return;
    setText(text);
    setShortcut({});
    updateGeometry();
}

void BevelButton::setHasMenu(bool hasMenu) {
    hasMenu_ = hasMenu;
    update();
}

void BevelButton::AddRow(std::string text) {
    rows_->append(std::move(text));
    rowsChanged();
}

void BevelButton::AddSeparator() {
    rows_->appendSeparator();
    rowsChanged();
}

void BevelButton::setRows(std::vector<std::string> texts) {
    DeleteAllRows();
    rows_->setRows(std::move(texts));
    rowsChanged();
}

void BevelButton::DeleteAllRows() {
    closePopup();
    rows_->clear();
    menuValue_ = 0;
    menuValueSet_ = false;
    currentRowChanged();
}

void BevelButton::RemoveRow(int row) {
    if (!rows_->has(row))
        return;
    closePopup();
    rows_->remove(row);
    if (row == menuValue_) {
        menuValue_ = 0;
        menuValueSet_ = false;
    } else if (row < menuValue_) {
        --menuValue_;
    }
    currentRowChanged();
}

int BevelButton::rowCount() const {
    return rows_->count();
}

std::string BevelButton::List(int row) const {
    return std::string(rows_->text(row));
}

void BevelButton::setMenuValue(int row) {
    if (rowCount() == 0)
        return;
    const int value = keepsAnyValue_ ? row : std::clamp(row, 0, rowCount() - 1);
    if (menuValueSet_ && value == menuValue_)
        return;
    menuValue_ = value;
    menuValueSet_ = true;
    currentRowChanged();
}

void BevelButton::currentRowChanged() {
    update();
    QAccessibleValueChangeEvent valued(this, hasCurrentRow() ? toQ(List(menuValue_)) : QString());
    QAccessible::updateAccessibility(&valued);
    if (!showsCurrentRow_)
        return;
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

void BevelButton::setShowsCurrentRow(bool shows) {
    showsCurrentRow_ = shows;
    update();
}

void BevelButton::rowsChanged() {
    closePopup();
    if (!hasMenu_)
        setHasMenu(true);
}

bool BevelButton::hasCurrentRow() const {
    return menuValueSet_ && rows_->has(menuValue_);
}

QString BevelButton::wholeText() const {
    return showsCurrentRow_ && hasCurrentRow() ? toQ(rows_->text(menuValue_)) : text();
}

QString BevelButton::shownText() const {
    return elidedInMiddle(textFont(), wholeText(), textRect().width());
}

QRect BevelButton::textRect() const {
    const int padding = std::min(sidePadding, width() / 10);
    return rect().adjusted(padding, 1, hasMenu_ ? -padding - arrowRoom : -padding, -1);
}

QFont BevelButton::textFont() const {
    const QFont font = fontForHeight(this->font(), textRect().height());
    if (!showsCurrentRow_ || !hasCurrentRow())
        return fontForWidth(font, text(), textRect().width());
    // A row may be of any length: rather cut it short than let its size jump while one pages on.
    const int smallest = std::max(kSmallestPixelSize, QFontInfo(font).pixelSize() * 3 / 4);
    return fontForWidth(font, wholeText(), textRect().width(), smallest);
}

QSize BevelButton::sizeHint() const {
    const QFontMetrics metrics(font());
    const int width = textWidth(font(), text()) + 2 * sidePadding + (hasMenu_ ? arrowRoom : 0);
    return {std::max(width, 3 * sidePadding), metrics.height() + 4};
}

QSize BevelButton::minimumSizeHint() const {
    return {0, 0};
}

bool BevelButton::menuIsOpen() const {
    return !popup_.isNull() && popup_->isVisible();
}

void BevelButton::openMenu() {
    if (rowCount() == 0 || menuIsOpen() || !isEnabled())
        return;
    closePopup();
    popup_ = new MenuPopup(rows_, hasCurrentRow() ? menuValue_ : -1, this);
    connect(popup_, &MenuPopup::picked, this, &BevelButton::choose);
    connect(popup_, &MenuPopup::closed, this, [this] { setDown(false); });
    setDown(true);
    popup_->open();
}

void BevelButton::closePopup() {
    if (!popup_.isNull())
        popup_->close();
    popup_.clear();
}

void BevelButton::choose(int row) {
    closePopup();
    setMenuValue(row);
    emit rowChosen(row);
}

bool BevelButton::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QString whole = wholeText();
        showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(),
                         toolTipWithWhole(whole, shownText() != whole, toolTip()), this);
        return true;
    }
    return QAbstractButton::event(event);
}

void BevelButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        closePopup();
    QAbstractButton::changeEvent(event);
}

void BevelButton::hideEvent(QHideEvent* event) {
    closePopup();
    QAbstractButton::hideEvent(event);
}

void BevelButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (hasMenu_)
            openMenu();
        else
            click();
        return;
    case Qt::Key_Space:
    case Qt::Key_Down:
    case Qt::Key_F4:
        if (hasMenu_) {
            openMenu();
            return;
        }
        break;
    default:
        break;
    }
    QAbstractButton::keyPressEvent(event);
}

void BevelButton::mousePressEvent(QMouseEvent* event) {
    if (!hasMenu_) {
        QAbstractButton::mousePressEvent(event);
        return;
    }
    if (event->button() == Qt::LeftButton)
        openMenu();
}

void BevelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFrame(painter);
    if (!icon().isNull()) {
        const int side = std::min({iconSize().width(), width() - 4, height() - 4});
        QRect place(0, 0, side, side);
        place.moveCenter(rect().center());
        icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    } else {
        painter.setFont(textFont());
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawText(textRect(), Qt::AlignCenter | Qt::TextSingleLine, shownText());
    }
    if (hasMenu_)
        paintArrow(painter);
}

void BevelButton::paintFrame(QPainter& painter) const {
    const QPalette colours = palette();
    const QColor face = colours.color(QPalette::Button);
    const bool pressed = isDown() || isChecked();
    QColor top = face.lighter(107);
    QColor bottom = face.darker(105);
    if (pressed)
        top = bottom = face.darker(isDown() ? 125 : 118);
    else if (underMouse() && isEnabled())
        top = bottom = face.lighter(112);

    const DevicePixels device(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const int line = device.length(1);
    QColor edge = face.darker(isEnabled() ? 165 : 130);
    int thickness = line;
    if (hasFocus()) {
        edge = colours.color(QPalette::Highlight);
        thickness = 2 * line;
    }
    const qreal inset = thickness / 2.0;
    const QRectF frame = QRectF(device.rect(rect())).adjusted(inset, inset, -inset, -inset);
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.setBrush(fill);
    painter.setPen(QPen(edge, thickness));
    painter.drawRoundedRect(frame, 2.5 * line, 2.5 * line);
    if (pressed) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        const int left = qRound(frame.left() + inset) + line;
        const int right = qRound(frame.right() - inset) - line;
        painter.fillRect(left, qRound(frame.top() + inset), right - left, line, face.darker(145));
    }
}

void BevelButton::paintArrow(QPainter& painter) const {
    const QRect text = textRect();
    const DevicePixels device(painter);
    const int half = device.length(arrowWidth) / 2;
    const QRect room = device.rect(QRect(text.right() + 1, 0, arrowRoom, height()));
    const int middle = room.right() - half;
    const int first = room.center().y() - half / 2;
    // Row by row, so that its slopes are even at any scale.
    for (int row = 0; row <= half; ++row)
        painter.fillRect(middle - half + row, first + row, 2 * (half - row) + 1, 1,
                         palette().color(QPalette::ButtonText));
}

} // namespace velmarin
