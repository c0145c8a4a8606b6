#pragma once

#include "book/BookReadings.h"
#include "book/DraftRun.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

namespace velmarin {

/// Reads a book in threads of its own. Until it has ended, nobody else changes the book's settings.
class ReadingRun : public QObject {
    Q_OBJECT
  public:
    ReadingRun(BookFolder& book, QObject* parent);
    /// Stops the run and waits for its end.
    ~ReadingRun() override;

    void start();
    /// Asks the run to stop; `ended` follows within a second.
    void stop() { stop_ = true; }
    bool running() const { return thread_.joinable(); }

  signals:
    void progressed(const velmarin::ReadingProgress& progress);
    /// What was read so far, every few seconds and at the end.
    void read(std::shared_ptr<const velmarin::BookReadings> readings);
    void ended(const velmarin::BookReadingResult& result);

  private:
    void work();
    void report(const ReadingProgress& progress);
    void handOverReadings();

    BookFolder& book_;
    std::atomic<bool> stop_ = false;
    std::atomic<bool> ending_ = false; ///< what is read now is not to be shown
    std::chrono::steady_clock::time_point nextReadings_ = {};
    std::thread thread_;
};

} // namespace velmarin
