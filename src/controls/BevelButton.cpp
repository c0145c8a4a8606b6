#include "controls/BevelButton.h"

#include "controls/BevelPainting.h"
#include "controls/FittedText.h"
#include "controls/MenuPopup.h"
#include "controls/PlainToolTip.h"
#include "controls/RowModel.h"
#include "platform/QtText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kSidePadding = 3;
constexpr int kArrowRoom = kMenuArrowWidth + 3; // with a gap to the text

/// Presents a BevelButton to screen readers: its kind, its name, and the current row of its menu as its value.
class BevelButtonAccessible : public QAccessibleWidget {
  public:
    explicit BevelButtonAccessible(BevelButton* button) : QAccessibleWidget(button, QAccessible::Button) {}

    QAccessible::Role role() const override {
        if (button()->hasMenu())
            return QAccessible::ButtonMenu;
        return button()->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = button()->hasMenu();
        state.expanded = button()->menuIsOpen();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value && button()->hasMenu() && button()->menuValueSet())
            return toQ(button()->List(button()->MenuValue()));
        QString text = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name)
            return text;
        // The caption comes first, even while the button shows its current row instead.
        const QString name = text.isEmpty() ? button()->text() : text;
        const QString shown = button()->wholeText();
        return shown == button()->text() ? name : name + QLatin1String(": ") + shown;
    }

    QStringList actionNames() const override {
        if (!button()->isEnabled())
            return {};
        return {button()->hasMenu() ? showMenuAction() : button()->isCheckable() ? toggleAction() : pressAction()};
    }

    void doAction(const QString& action) override {
        if (!actionNames().contains(action))
            return;
        if (action == showMenuAction())
            button()->openMenu();
        else
            button()->click();
    }

  private:
    BevelButton* button() const { return static_cast<BevelButton*>(widget()); }
};

QAccessibleInterface* accessibleBevelButton(const QString& className, QObject* object) {
    if (className != QLatin1String(BevelButton::staticMetaObject.className()))
        return nullptr;
    auto* button = qobject_cast<BevelButton*>(object);
    return button != nullptr ? new BevelButtonAccessible(button) : nullptr;
}

} // namespace

BevelButton::BevelButton(std::string_view caption, QWidget* parent)
    : QAbstractButton(parent), rows_(new RowModel(this)) {
    QAccessible::installFactory(accessibleBevelButton); // a second call does nothing
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
    // An ampersand in a name must not become a shortcut.
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
    const int padding = std::min(kSidePadding, width() / 10);
    return rect().adjusted(padding, 1, hasMenu_ ? -padding - kArrowRoom : -padding, -1);
}

QFont BevelButton::textFont() const {
    const QFont font = fontForHeight(this->font(), textRect().height());
    if (!showsCurrentRow_ || !hasCurrentRow())
        return fontForWidth(font, text(), textRect().width());
    // A row may be of any length. Elide it rather than let the font size change from page to page.
    const int smallest = std::max(kSmallestPixelSize, QFontInfo(font).pixelSize() * 3 / 4);
    return fontForWidth(font, wholeText(), textRect().width(), smallest);
}

QSize BevelButton::sizeHint() const {
    const QFontMetrics metrics(font());
    const int width = textWidth(font(), text()) + 2 * kSidePadding + (hasMenu_ ? kArrowRoom : 0);
    return {std::max(width, 3 * kSidePadding), metrics.height() + 4};
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
    paintBevel(painter, rect(), palette(),
               {.enabled = isEnabled(),
                .down = isDown(),
                .checked = isChecked(),
                .hovered = underMouse(),
                .focused = hasFocus()});
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
        paintMenuArrow(painter, QRect(textRect().right() + 1, 0, kArrowRoom, height()),
                       palette().color(QPalette::ButtonText));
}

} // namespace velmarin
