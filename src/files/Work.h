#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <utility>

namespace velmarin {

/// How far a command is.
struct WorkDone {
    std::filesystem::path item; ///< what is being worked on
    std::uint64_t bytes = 0;    ///< copied so far
    std::uint64_t of = 0;       ///< as far as known yet
    /// The folder that another run holds locked, while this one waits for it; otherwise empty.
    std::filesystem::path waitsFor;
};

/// Called between pieces of work: for every item, and every few megabytes. It may run the event loop. What it throws
/// ends the command, which then removes what it has staged.
using Progress = std::function<void(const WorkDone&)>;

/// Counts the work of one command and calls its Progress.
class Work {
  public:
    explicit Work(Progress progress = {}) : progress_(std::move(progress)) {}

    void expect(std::uint64_t bytes) { done_.of += bytes; }
    void startItem(const std::filesystem::path& item) {
        done_.item = item;
        pass();
    }
    void copied(std::uint64_t bytes) {
        done_.bytes += bytes;
        pass();
    }
    void waitFor(const std::filesystem::path& folder) {
        if (folder.empty() && done_.waitsFor.empty())
            return;
        done_.waitsFor = folder;
        pass();
    }
    void pass() const {
        if (progress_)
            progress_(done_);
    }

  private:
    Progress progress_;
    WorkDone done_;
};

} // namespace velmarin
