#pragma once

#include <QListView>

#include <string>
#include <vector>

namespace velmarin {

class RowModel;

/// A list of one column, rows counted from 0. At most one row is selected.
class ListBox : public QListView {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);

    void AddRow(std::string text);
    void setRows(std::vector<std::string> texts);
    /// Nothing is selected then; nothing is emitted.
    void DeleteAllRows();
    int rowCount() const;
    /// The row's text byte for byte as it was added; empty for a row that is not there.
    std::string List(int row) const;

    /// The selected row, -1 for none.
    int ListIndex() const;
    /// Selects a row, scrolls to it and emits `Change`, even if it is already selected. An index without a row selects
    /// none.
    void setListIndex(int row);
    int SelCount() const;
    bool Selected(int row) const;

  signals:
    /// Another row is selected, or none any more, or code has set the row.
    void Change();

  private:
    RowModel* rows_;
    bool setting_ = false;
};

} // namespace velmarin
