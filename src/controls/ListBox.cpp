#include "controls/ListBox.h"

#include "controls/RowDelegate.h"
#include "controls/RowModel.h"

#include <QItemSelectionModel>

#include <utility>

namespace velmarin {

ListBox::ListBox(QWidget* parent) : QListView(parent), rows_(new RowModel(this)) {
    setModel(rows_);
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!setting_)
            emit Change();
    });
}

void ListBox::AddRow(std::string text) {
    rows_->append(std::move(text));
}

void ListBox::setRows(std::vector<std::string> texts) {
    rows_->setRows(std::move(texts));
}

void ListBox::DeleteAllRows() {
    rows_->clear();
}

int ListBox::rowCount() const {
    return rows_->count();
}

std::string ListBox::List(int row) const {
    return std::string(rows_->text(row));
}

int ListBox::ListIndex() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void ListBox::setListIndex(int row) {
    setting_ = true;
    if (rows_->has(row)) {
        const QModelIndex index = rows_->index(row);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    } else {
        selectionModel()->clear();
    }
    setting_ = false;
    emit Change();
}

int ListBox::SelCount() const {
    return static_cast<int>(selectionModel()->selectedRows().size());
}

bool ListBox::Selected(int row) const {
    return rows_->has(row) && selectionModel()->isSelected(rows_->index(row));
}

} // namespace velmarin
