#pragma once

#include "workshop/PageTable.h"

#include <QWidget>

class QCheckBox;
class QTreeView;

namespace velmarin {

/// The list of the pages with their states, and its filter.
class PageListPane : public QWidget {
    Q_OBJECT
  public:
    PageListPane(WorkshopModel& model, QWidget* parent);

    void showRows();
    void showChangedRows(const std::vector<std::size_t>& rows);
    void showCurrentRow();
    QTreeView& view() const { return *view_; }
    QCheckBox* doubtfulOnly() const { return doubtfulOnly_; }

  signals:
    /// Another row was chosen.
    void picked(std::size_t row);
    /// A row was clicked, or Return pressed in the list: the user goes on in the fields.
    void entered();
    /// The menu of the current page is asked for, at this place of the screen.
    void menuWanted(const QPoint& place);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeView();

    WorkshopModel& model_;
    PageTable* table_;
    QTreeView* view_;
    QCheckBox* doubtfulOnly_;
    bool showing_ = false; ///< the current row is being set by code
};

} // namespace velmarin
