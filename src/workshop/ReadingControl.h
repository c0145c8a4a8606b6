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
    /// Changes the settings of the book, and reads again what they ask for.
    void changeSettings(std::function<void(BookSettings&)> change);

  signals:
    /// The picture of a page may have changed.
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
    ReadingRun run_;
};

} // namespace velmarin
