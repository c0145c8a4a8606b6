#include "controls/PopupMenu.h"

#include "controls/FittedText.h"
#include "controls/PlainToolTip.h"
#include "platform/QtText.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

constexpr int kWidestList = 520;

} // namespace

PopupMenu::PopupMenu(QWidget* parent) : QComboBox(parent) {
    // Without a prompt, a QComboBox picks its first row by itself.
    setPrompt("Choose");
    setFocusPolicy(Qt::TabFocus);
    setMinimumSize(0, 0);
    connect(this, &QComboBox::activated, this, &PopupMenu::Change);
}

void PopupMenu::AddRow(std::string text, std::any tag) {
    addItem(toQ(text));
    rows_.push_back({std::move(text), std::move(tag)});
}

void PopupMenu::DeleteAllRows() {
    const QSignalBlocker quiet(this);
    hidePopup();
    clear();
    rows_.clear();
}

std::string PopupMenu::List(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<std::size_t>(row)].text : std::string();
}

std::any PopupMenu::Tag(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<std::size_t>(row)].tag : std::any();
}

void PopupMenu::setListIndex(int row) {
    setListIndexQuietly(row);
    emit Change();
}

void PopupMenu::setListIndexQuietly(int row) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(row >= 0 && row < rowCount() ? row : -1);
}

void PopupMenu::setPrompt(std::string_view prompt) {
    setPlaceholderText(toQ(prompt));
}

void PopupMenu::setLabel(std::string_view label) {
    // The accessible name of a combo box is its row, unless a label is its buddy.
    auto* hiddenLabel = new QLabel(toQ(label), parentWidget());
    hiddenLabel->setBuddy(this);
    hiddenLabel->hide();
}

void PopupMenu::showPopup() {
    openRequested_ = true;
    announceChoice();
}

void PopupMenu::announceChoice() {
    if (announcing_)
        return;
    {
        const QScopedValueRollback announcing(announcing_, true);
        emit aboutToChoose();
    }
    if (std::exchange(openRequested_, false))
        openList();
}

void PopupMenu::openList() {
    if (rows_.empty() || !isEnabled() || !isVisible())
        return;
    const int frame = 2 * (view()->frameWidth() + 12);
    const int widest = std::min(kWidestList, screen()->availableGeometry().width());
    view()->setMinimumWidth(std::clamp(view()->sizeHintForColumn(0) + frame, std::min(width(), widest), widest));
    view()->setTextElideMode(Qt::ElideMiddle);
    QComboBox::showPopup();
    // If no row is marked, the first press of Down would go to the second row.
    if (currentIndex() < 0)
        view()->setCurrentIndex(model()->index(0, modelColumn()));
}

QFont PopupMenu::textFont() const {
    return fontForHeight(font(), height() - 4);
}

QString PopupMenu::wholeText() const {
    return currentIndex() < 0 ? placeholderText() : currentText();
}

int PopupMenu::textRoom() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return field.width() - 4;
}

bool PopupMenu::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool cut = elidedInMiddle(textFont(), wholeText(), textRoom()) != wholeText();
        showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(), toolTipWithWhole(wholeText(), cut, toolTip()),
                         this);
        return true;
    }
    return QComboBox::event(event);
}

void PopupMenu::enterEvent(QEnterEvent* event) {
    QComboBox::enterEvent(event);
    announceChoice();
    emit MouseEntered();
}

void PopupMenu::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    // Focus that returns from the list is the end of a choice.
    if (event->reason() != Qt::PopupFocusReason)
        announceChoice();
}

void PopupMenu::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_Space:
    case Qt::Key_F4:
        showPopup();
        return;
    default:
        break;
    }
    const QString typed = event->text();
    const bool searches = !typed.isEmpty() && typed.front().isPrint() &&
                          !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!searches) {
        event->ignore();
        return;
    }
    showPopup();
    view()->keyboardSearch(typed);
}

void PopupMenu::mousePressEvent(QMouseEvent* event) {
    emit MouseDown();
    QComboBox::mousePressEvent(event);
}

void PopupMenu::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QFont font = textFont();
    painter.setFont(font);
    option.fontMetrics = QFontMetrics(font);
    // The prompt has the color of a row: in grey the control would look disabled.
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = elidedInMiddle(font, wholeText(), textRoom());
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void PopupMenu::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace velmarin
