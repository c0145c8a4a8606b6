#pragma once

namespace velmarin {

/// Exists while the QApplication is made. Qt aborts the process if the display cannot be reached; with the guard the
/// process says so and ends with status 2.
class DisplayGuard {
  public:
    /// `program` begins the message.
    explicit DisplayGuard(const char* program);
    ~DisplayGuard();
    DisplayGuard(const DisplayGuard&) = delete;
    DisplayGuard& operator=(const DisplayGuard&) = delete;
};

} // namespace velmarin
