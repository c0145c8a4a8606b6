#include "maintenance/OrderList.h"

#include "platform/QtText.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimerEvent>

#include <algorithm>

namespace velmarin {

class OrderModel : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<std::string>& rows() const { return order_.rows; }

    void append(std::string text) {
        const int row = rowCount({});
        beginInsertRows({}, row, row);
        order_.rows.push_back(std::move(text));
        endInsertRows();
    }

    void move(int from, int before) {
        if (from < 0 || before < 0 || before > rowCount({}) || !beginMoveRows({}, from, from, {}, before))
            return;
        order_.move(static_cast<std::size_t>(from), static_cast<std::size_t>(before));
        endMoveRows();
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(order_.rows.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
            return {};
        return toQ(order_.rows[static_cast<std::size_t>(index.row())]);
    }

  private:
    DictionaryOrder order_;
};

namespace {

constexpr int kScrollInterval = 60; // ms, while a row is held at an edge
constexpr int kEdge = 12;           // logical pixels

/// Draws a line below each row.
class GridDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        painter->setPen(option.palette.color(QPalette::Midlight));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 3);
    }
};

} // namespace

OrderList::OrderList(QWidget* parent) : QListView(parent), model_(new OrderModel(this)) {
    setModel(model_);
    setItemDelegate(new GridDelegate(this));
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setTextElideMode(Qt::ElideMiddle);
}

void OrderList::AddRow(std::string text) {
    model_->append(std::move(text));
}

const std::vector<std::string>& OrderList::rows() const {
    return model_->rows();
}

void OrderList::move(int from, int before) {
    model_->move(from, before);
    scrollTo(currentIndex());
}

bool OrderList::event(QEvent* event) {
    // Claims the keys before the menu bar handles them as shortcuts.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->modifiers() == Qt::AltModifier && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) ||
            (dropBefore_ >= 0 && key->key() == Qt::Key_Escape)) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void OrderList::keyPressEvent(QKeyEvent* event) {
    const int row = currentIndex().row();
    if (event->key() == Qt::Key_Escape && dropBefore_ >= 0)
        return endDrag();
    if (!(event->modifiers() & Qt::AltModifier) || (event->key() != Qt::Key_Up && event->key() != Qt::Key_Down))
        return QListView::keyPressEvent(event);
    if (row >= 0)
        move(row, event->key() == Qt::Key_Up ? row - 1 : row + 2);
}

void OrderList::mousePressEvent(QMouseEvent* event) {
    // Other buttons are ignored during a drag.
    if (dropBefore_ >= 0)
        return;
    QListView::mousePressEvent(event);
    pressedAt_ = event->position().toPoint();
    pressedRow_ = event->button() == Qt::LeftButton ? indexAt(pressedAt_).row() : -1;
}

void OrderList::mouseMoveEvent(QMouseEvent* event) {
    if (pressedRow_ < 0 || !(event->buttons() & Qt::LeftButton))
        return QListView::mouseMoveEvent(event);
    const QPoint position = event->position().toPoint();
    if (dropBefore_ >= 0 || (position - pressedAt_).manhattanLength() >= QApplication::startDragDistance())
        dragTo(position);
}

void OrderList::mouseReleaseEvent(QMouseEvent* event) {
    if (dropBefore_ >= 0 && event->button() != Qt::LeftButton)
        return;
    const int from = pressedRow_;
    const int before = dropBefore_;
    endDrag();
    if (before >= 0)
        move(from, before);
    else
        QListView::mouseReleaseEvent(event);
}

void OrderList::dragTo(const QPoint& position) {
    draggedTo_ = position;
    dropBefore_ = rowBefore(position);
    viewport()->setCursor(Qt::DragMoveCursor);
    const bool atEdge = position.y() < kEdge || position.y() >= viewport()->height() - kEdge;
    if (atEdge && !scrolling_.isActive())
        scrolling_.start(kScrollInterval, this);
    else if (!atEdge)
        scrolling_.stop();
    viewport()->update();
}

void OrderList::endDrag() {
    pressedRow_ = -1;
    dropBefore_ = -1;
    scrolling_.stop();
    viewport()->unsetCursor();
    viewport()->update();
}

int OrderList::rowBefore(const QPoint& position) const {
    const int rows = model_->rowCount({});
    for (int row = 0; row < rows; ++row) {
        if (position.y() < visualRect(model_->index(row)).center().y())
            return row;
    }
    return rows;
}

void OrderList::timerEvent(QTimerEvent* event) {
    if (event->timerId() != scrolling_.timerId())
        return QListView::timerEvent(event);
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() + (draggedTo_.y() < kEdge ? -bar->singleStep() : bar->singleStep()));
    dragTo(draggedTo_);
}

void OrderList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (dropBefore_ < 0)
        return;
    const bool atEnd = dropBefore_ == model_->rowCount({});
    const QRect row = visualRect(model_->index(atEnd ? dropBefore_ - 1 : dropBefore_));
    const int y = std::max(1, atEnd ? row.bottom() : row.top());
    QPainter painter(viewport());
    painter.fillRect(QRect(row.left(), y - 1, row.width(), 2), palette().color(QPalette::Highlight));
}

} // namespace velmarin
