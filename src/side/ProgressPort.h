#pragma once

#include <string_view>

namespace velmarin {

/// Where the build of a user dictionary reports its progress.
class ProgressPort {
  public:
    virtual ~ProgressPort() = default;
    /// What is being done now; empty at the end.
    virtual void message(std::string_view text) = 0;
    virtual void showBar() = 0;
    virtual void setMaximum(int maximum) = 0;
    /// Repaints at once.
    virtual void setValue(int value) = 0;
    /// Called for each line; may let events run.
    virtual void yield() = 0;
};

/// Shows nothing, for builds without a window.
class SilentProgress final : public ProgressPort {
  public:
    void message(std::string_view) override {}
    void showBar() override {}
    void setMaximum(int) override {}
    void setValue(int) override {}
    void yield() override {}
};

} // namespace velmarin
