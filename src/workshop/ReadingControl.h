#pragma once

#include "workshop/ReadingRun.h"

#include <functional>
#include <vector>

namespace velmarin {

class NoticeBar;
class ReadingBar;
class ScannedBook;
class WorkshopModel;

/// Reads the book that is open, hands what was read to its model, and changes its settings between two runs.
class ReadingControl : public QObject {
    Q_OBJECT
  public:
    ReadingControl(ScannedBook& book, WorkshopModel& model, ReadingBar& bar, NoticeBar& notice);

    /// Goes on where the last run was stopped.
    void start();
    bool running() const { return run_.running(); }
    /// Changes the settings of the book, and reads again what they ask for. A running reading is stopped first.
    void changeSettings(std::function<void(BookSettings&)> change);
    /// The same for the current page. `change` gets the page of the scan, from 1.
    void changePage(std::function<void(BookSettings&, int scanPage)> change);

  signals:
    /// More pages have been read.
    void taken();
    /// Pictures of pages may have changed.
    void picturesChanged();

  private:
    void takeReadings(const std::shared_ptr<const BookReadings>& readings);
    void end(const BookReadingResult& result);
    bool applyChanges();

    ScannedBook& book_;
    WorkshopModel& model_;
    ReadingBar& bar_;
    NoticeBar& notice_;
    std::vector<std::function<void(BookSettings&)>> changes_; ///< to be made when no run goes on
    bool picturesChange_ = false;                             ///< since the last readings the settings have changed
    ReadingRun run_;
};

} // namespace velmarin
