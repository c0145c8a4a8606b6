#pragma once

#include "workshop/WorkshopModel.h"

#include <QAbstractTableModel>

namespace velmarin {

/// A state as the list and the captions write it: a sign and a word.
QString textOf(PageState state);

/// The visible rows of a WorkshopModel, for a view that asks only for those on the screen.
class PageTable : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { Number, First, Last, State, ColumnCount };

    PageTable(const WorkshopModel& model, QObject* parent) : QAbstractTableModel(parent), model_(model) {}

    /// Rows of the draft were added, removed, hidden or shown.
    void reset();
    /// These rows of the draft have changed.
    void update(const std::vector<std::size_t>& rows);

    /// The index of a row of the draft; invalid if it is hidden.
    QModelIndex indexOf(std::size_t row) const;
    std::size_t rowOf(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const WorkshopModel& model_;
};

} // namespace velmarin
