#pragma once

#include <atomic>

namespace velmarin {

/// While one exists, SIGINT, SIGTERM and SIGHUP ask a long command to stop, instead of ending it. A second one ends it.
/// One at a time.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Whether one has come.
    const std::atomic<bool>& asked() const;
};

} // namespace velmarin
