#pragma once

#include "workshop/WorkshopModel.h"

#include <QWidget>

#include <memory>

namespace velmarin {

class Host;

/// A book at work: the list of its pages, the strip of the current one between its neighbors, the fields, and the bar
/// that counts.
class WorkshopDesk : public QWidget, public WorkshopDisplay {
    Q_OBJECT
  public:
    WorkshopDesk(std::unique_ptr<WorkshopBook> book, Host& host, QWidget* parent);
    ~WorkshopDesk() override;

    WorkshopModel& model() { return model_; }

    void showRows() override;
    void showChangedRows(const std::vector<std::size_t>& rows) override;
    void showCurrentPage() override;
    void showCounts() override;
    void showAllDone() override;
    void showSaved(const Result& result) override;
    void showTakenOver(std::size_t rows) override;

  signals:
    /// What can be undone or redone has changed, or another page is the current one.
    void changed();

  private:
    std::unique_ptr<WorkshopBook> book_;
    WorkshopModel model_;
    Host& host_;
};

} // namespace velmarin
