#pragma once

#include <QAbstractListModel>

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The rows of a menu or list, counted from 0, as the UTF-8 that was added. Adding a row is cheap while no view is
/// attached: a page list has up to about 200,000.
class RowModel : public QAbstractListModel {
    Q_OBJECT
  public:
    using QAbstractListModel::QAbstractListModel;

    void append(std::string text);
    void appendSeparator();
    void setRows(std::vector<std::string> texts);
    void clear();
    /// Does nothing for a missing row.
    void remove(int row);

    int count() const { return static_cast<int>(rows_.size()); }
    bool has(int row) const { return row >= 0 && row < count(); }
    /// Empty for a separator and for a missing row.
    std::string_view text(int row) const;
    bool isSeparator(int row) const { return has(row) && rows_[static_cast<std::size_t>(row)].separator; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    struct Row {
        std::string text;
        bool separator = false;
    };
    void insertAtEnd(Row row);

    std::vector<Row> rows_;
};

} // namespace velmarin
