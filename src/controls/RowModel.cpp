#include "controls/RowModel.h"

#include "platform/QtText.h"

#include <utility>

namespace velmarin {

void RowModel::insertAtEnd(Row row) {
    beginInsertRows({}, count(), count());
    rows_.push_back(std::move(row));
    endInsertRows();
}

void RowModel::append(std::string text) {
    insertAtEnd({std::move(text), false});
}

void RowModel::appendSeparator() {
    insertAtEnd({{}, true});
}

void RowModel::setRows(std::vector<std::string> texts) {
    beginResetModel();
    rows_.clear();
    rows_.reserve(texts.size());
    for (std::string& text : texts)
        rows_.push_back({std::move(text), false});
    endResetModel();
}

void RowModel::clear() {
    beginResetModel();
    rows_.clear();
    endResetModel();
}

void RowModel::remove(int row) {
    if (!has(row))
        return;
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
}

std::string_view RowModel::text(int row) const {
    return has(row) ? std::string_view(rows_[static_cast<std::size_t>(row)].text) : std::string_view();
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !has(index.row()))
        return {};
    if (role == Qt::DisplayRole)
        return toQ(text(index.row()));
    if (role == Qt::AccessibleTextRole && isSeparator(index.row()))
        return QStringLiteral("separator");
    return {};
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || isSeparator(index.row()))
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace velmarin
