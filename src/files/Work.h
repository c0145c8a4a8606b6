#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <utility>

namespace velmarin {

/// How far a command is.
struct WorkDone {
    std::filesystem::path item;      ///< what is being worked on
    std::uint64_t bytes = 0;         ///< copied so far
    std::uint64_t expectedBytes = 0; ///< to be copied in all, as far as known yet
    /// The folder that another run holds locked, while this one waits for it; otherwise empty.
    std::filesystem::path waitsFor;
};

/// Called between pieces of work: for every item, and every few megabytes. It may run the event loop. An exception
/// that it throws ends the command, which then removes what it has staged.
using Progress = std::function<void(const WorkDone&)>;

/// Counts what one command has done and reports it to the command's Progress.
class Work {
  public:
    explicit Work(Progress progress = {}) : progress_(std::move(progress)) {}

    void expect(std::uint64_t bytes) { done_.expectedBytes += bytes; }
    void startItem(const std::filesystem::path& item) {
        done_.item = item;
        pass();
    }
    void copied(std::uint64_t bytes) {
        done_.bytes += bytes;
        pass();
    }
    /// Reports that the command waits for a lock on `folder`; an empty path ends the waiting.
    void waitFor(const std::filesystem::path& folder) {
        if (folder.empty() && done_.waitsFor.empty())
            return;
        done_.waitsFor = folder;
        pass();
    }
    /// Calls the Progress with the present counts. Every loop that may take long calls it, so that windows stay alive.
    void pass() const {
        if (progress_)
            progress_(done_);
    }

  private:
    Progress progress_;
    WorkDone done_;
};

} // namespace velmarin
