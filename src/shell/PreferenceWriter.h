#pragma once

#include "files/AtomicFile.h"
#include "search/GroupModel.h"
#include "store/WindowPlacement.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Writes the small files that outlive a run. Reports a failure only if neither the file nor the reason is
/// already failing; a successful write resets the file. So a read-only program folder gives one message in a run, not
/// one for each move of a window and each group.
class PreferenceWriter {
  public:
    /// The folder and the lines are read at each use.
    /// @param preferencesFolder `Preferences`, which holds the placement
    /// @param newDicPref if not empty, the lines that are written for any group (`pNewDicPref`)
    PreferenceWriter(std::function<void(std::string_view)> report, const FolderItem& preferencesFolder,
                     const std::vector<std::string>& newDicPref)
        : report_(std::move(report)), preferencesFolder_(preferencesFolder), newDicPref_(newDicPref) {}

    /// Writes `DictionaryPreferences.txt` of the group; does nothing if there is none or its folder is gone. A file
    /// that could not be read is not replaced, which is reported as a failure.
    void writeGroup(const GroupModel& group, bool separately);
    /// The last placement of the first window, saved or not; nullopt if it was never saved or moved.
    std::optional<WindowPlacement> placement() const;
    /// Writes the file `MainWindow`.
    void writePlacement(const WindowPlacement& placement);
    /// Reports the next failure of any file again.
    void forgetFailures() { failing_.clear(); }
    /// Reports the outcome of any other write to `path`.
    void note(const std::string& path, const Result& result);

  private:
    std::function<void(std::string_view)> report_;
    const FolderItem& preferencesFolder_;
    const std::vector<std::string>& newDicPref_;
    /// Path to the reason in the system's words.
    std::map<std::string, std::string> failing_;
    std::optional<WindowPlacement> unsaved_;
};

} // namespace velmarin
