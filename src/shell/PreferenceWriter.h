#pragma once

#include "files/AtomicFile.h"
#include "search/WindowState.h"
#include "shell/ThisAppliModule.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace velmarin {

/// Writes the small files that outlive a run. A file that cannot be written is told of once, and again only after it
/// could be written in between: moving a window in an unwritable place is one message, not hundreds.
class PreferenceWriter {
  public:
    explicit PreferenceWriter(std::function<void(std::string_view)> tell) : tell_(std::move(tell)) {}

    /// `DictionaryPreferences.txt` of the window's group; nothing where the window has none or its folder is gone.
    void writeGroup(const WindowState& state, bool separately, const ThisAppliModule& module);
    /// The file `MainWindow`.
    void writePlacement(const WindowPlacement& placement, const ThisAppliModule& module);
    /// The next failure of any file is told of again.
    void forgetFailures() { failing_.clear(); }
    /// Takes note of the outcome of any other write to `path`.
    void note(const std::string& path, const WriteResult& result);

  private:
    std::function<void(std::string_view)> tell_;
    std::set<std::string> failing_;
};

} // namespace velmarin
