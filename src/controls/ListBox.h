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
    /// Leaves nothing selected and emits nothing.
    void DeleteAllRows();
    int rowCount() const;
    /// The text exactly as it was added; empty for a missing row.
    std::string List(int row) const;

    /// The selected row, or -1.
    int ListIndex() const;
    /// Selects a row, scrolls to it and emits `Change`, even if it is already selected. A missing row means none.
    void setListIndex(int row);
    int SelCount() const;
    bool Selected(int row) const;

  signals:
    /// Emitted when the selection changes, and whenever code sets the row.
    void Change();

  private:
    RowModel* rows_;
    bool setting_ = false;
};

} // namespace velmarin
