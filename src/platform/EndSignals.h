#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace velmarin {

/// Calls `end` from the event loop when the session or a user asks the process to go (SIGTERM, SIGINT, SIGHUP, or
/// the end of the desktop session), so that it ends as by its own menu. While one exists, these signals do nothing
/// else. Needs a QApplication; one at a time.
class EndSignals {
  public:
    explicit EndSignals(std::function<void()> end);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

  private:
    std::unique_ptr<QSocketNotifier> notifier_;
    QMetaObject::Connection session_;
};

} // namespace velmarin
