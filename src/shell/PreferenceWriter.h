#pragma once

#include "files/Result.h"
#include "search/GroupModel.h"
#include "shell/ThisAppliModule.h"
#include "store/WindowPlacement.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

/// Writes the small files that outlive a run. A file that cannot be written is told once, and again only after it could
/// be written in between; further files that fail for the same reason are not told. A read-only program folder is one
/// message in a run, not one for each move of a window and each group.
class PreferenceWriter {
  public:
    explicit PreferenceWriter(std::function<void(std::string_view)> tell) : tell_(std::move(tell)) {}

    /// `DictionaryPreferences.txt` of the window's group; nothing where the window has none or its folder is gone.
    void writeGroup(const GroupModel& group, bool separately, const ThisAppliModule& module);
    /// The placement that the first window had last: the saved one, or one that could not be saved since. Nothing where
    /// there is neither.
    std::optional<WindowPlacement> placement(const ThisAppliModule& module) const;
    /// The file `MainWindow`.
    void writePlacement(const WindowPlacement& placement, const ThisAppliModule& module);
    /// The next failure of any file is told again.
    void forgetFailures() { failing_.clear(); }
    /// Takes note of the outcome of any other write to `path`.
    void note(const std::string& path, const Result& result);

  private:
    std::function<void(std::string_view)> tell_;
    /// By path, the reason in the system's words.
    std::map<std::string, std::string> failing_;
    std::optional<WindowPlacement> unsaved_;
};

} // namespace velmarin
