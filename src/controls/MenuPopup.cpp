#include "controls/MenuPopup.h"

#include "controls/FittedText.h"
#include "controls/RowDelegate.h"
#include "controls/RowModel.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kMostVisibleRows = 30;
constexpr int kWidestPopup = 520;
constexpr int kMeasuredRows = 600;

} // namespace

MenuList::MenuList(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
}

void MenuList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (model()->flags(currentIndex()).testFlag(Qt::ItemIsEnabled))
            emit picked(currentIndex().row());
        return;
    case Qt::Key_Escape:
    case Qt::Key_F4:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        emit dismissed();
        return;
    default:
        QListView::keyPressEvent(event);
    }
}

QModelIndex MenuList::rowUnder(const QMouseEvent& event) const {
    const QPoint place = event.position().toPoint();
    const QModelIndex under = viewport()->rect().contains(place) ? indexAt(place) : QModelIndex();
    return under.flags().testFlag(Qt::ItemIsEnabled) ? under : QModelIndex();
}

void MenuList::mouseMoveEvent(QMouseEvent* event) {
    // QListView would scroll while a button is down, and rows would move away from under the pointer.
    const QModelIndex under = rowUnder(*event);
    if (under.isValid())
        selectionModel()->setCurrentIndex(under, QItemSelectionModel::ClearAndSelect);
}

void MenuList::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex under = rowUnder(*event);
    if (event->button() == Qt::LeftButton && under.isValid())
        emit picked(under.row());
}

MenuPopup::MenuPopup(RowModel* rows, int currentRow, QAbstractButton* owner)
    : QFrame(owner, Qt::Popup), rows_(rows), currentRow_(currentRow), owner_(owner), list_(new MenuList(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette edge = palette();
    edge.setColor(QPalette::WindowText, edge.color(QPalette::Button).darker(165));
    setPalette(edge);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // otherwise Qt makes a list of one row too high
    layout->addWidget(list_);
    list_->setItemDelegate(new MenuRowDelegate(currentRow, list_));
    list_->setModel(rows);
    list_->setAccessibleName(owner->accessibleName().isEmpty() ? owner->text() : owner->accessibleName());
    setFocusProxy(list_);
    connect(list_, &MenuList::picked, this, &MenuPopup::picked);
    connect(list_, &MenuList::dismissed, this, &QWidget::close);
}

void MenuPopup::open() {
    place();
    show();
    if (currentRow_ >= 0) {
        const QModelIndex current = rows_->index(currentRow_);
        list_->setCurrentIndex(current);
        list_->scrollTo(current, QAbstractItemView::PositionAtCenter);
    }
    list_->setFocus(Qt::PopupFocusReason);
}

int MenuPopup::contentWidth(int visibleRows) const {
    int widest = 0;
    const auto measure = [&](int row) {
        if (rows_->has(row))
            widest = std::max(widest, textWidth(list_->font(), rows_->index(row).data().toString()));
    };
    const int first = std::max(0, currentRow_ - visibleRows);
    for (int row = first; row < first + 2 * visibleRows; ++row)
        measure(row);
    // Of a long list only a sample is measured; a wider row is elided.
    const int step = std::max(1, rows_->count() / kMeasuredRows);
    for (int row = 0; row < rows_->count(); row += step)
        measure(row);
    return widest + MenuRowDelegate::kSideRoom;
}

void MenuPopup::place() {
    const QRect button(owner_->mapToGlobal(QPoint(0, 0)), owner_->size());
    const QScreen* screen = owner_->screen();
    const QRect room = screen->availableGeometry();
    const int frame = 2 * frameWidth();
    const int rowHeight = std::max(1, list_->sizeHintForRow(0));
    const int wanted = std::min(rows_->count(), kMostVisibleRows) * rowHeight + frame;

    const int below = room.bottom() - button.bottom();
    const int above = button.top() - room.top();
    const bool under = wanted <= below || below >= above;
    const int height = std::clamp(wanted, std::min(rowHeight + frame, room.height()),
                                  std::max(under ? below : above, rowHeight + frame));

    const int visibleRows = (height - frame) / rowHeight;
    int width = contentWidth(visibleRows) + frame;
    if (visibleRows < rows_->count())
        width += list_->verticalScrollBar()->sizeHint().width();
    width = std::min({std::max(width, button.width()), std::max(kWidestPopup, button.width()), room.width()});

    const int left = std::clamp(button.left(), room.left(), room.right() + 1 - width);
    const int top = under ? button.bottom() + 1 : button.top() - height;
    setGeometry(left, std::clamp(top, room.top(), std::max(room.top(), room.bottom() + 1 - height)), width, height);
}

void MenuPopup::mousePressEvent(QMouseEvent* event) {
    if (rect().contains(event->position().toPoint()))
        return;
    // A press on the button closes the menu; if Qt replayed it, the button would open the menu again.
    const QPoint onOwner = owner_->mapFromGlobal(event->globalPosition().toPoint());
    setAttribute(Qt::WA_NoMouseReplay, owner_->rect().contains(onOwner));
    close();
}

void MenuPopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    emit closed();
}

} // namespace velmarin
