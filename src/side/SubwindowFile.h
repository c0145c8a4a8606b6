#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What the find bar does with a word: finds it in the text, or looks it up.
enum class FindTarget { Find, LookUp };

/// The settings of a side window.
struct SubwindowSettings {
    SubwindowSettings();

    /// In pixels.
    int width = 352;
    int fontRow = 0;
    int sizeRow = 0;
    /// Whether each source of the source table is on.
    std::vector<bool> sourcesOn;
    FindTarget target = FindTarget::Find;
    bool SyncronizeCB = false;
    bool DontClearCB = false;
    /// -1: no user dictionary is chosen; nullopt: the file does not say.
    std::optional<int> userDicRow;

    bool operator==(const SubwindowSettings&) const = default;
};

/// The format of the file `Subwindow`: one value on each line. Missing numbers are 0, missing switches off.
SubwindowSettings parseSubwindow(std::string_view text);
std::string subwindowText(const SubwindowSettings& settings);

/// The settings are kept for each group, in the file `Subwindow` of its folder.
FolderItem subwindowFile(const FolderItem& groupFolder);
/// Returns nullopt if the group has no such file. Raises NilObjectException if it cannot be read.
std::optional<SubwindowSettings> readSubwindow(const FolderItem& groupFolder);
Result writeSubwindow(const FolderItem& groupFolder, const SubwindowSettings& settings);

} // namespace velmarin
