#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

/// What the find bar does with a word: finds it in the text, or looks it up.
enum class FindTarget { Find, DicApp };

/// The settings of a side window, kept for each group in the file `Subwindow` of its folder: ten lines, one value each.
struct SubwindowSettings {
    int width = 352;
    int fontRow = 0;
    int sizeRow = 0;
    bool DicAppCB = true;
    bool LatinCB = false;
    FindTarget target = FindTarget::Find;
    bool SyncronizeCB = false;
    bool DontClearCB = false;
    bool UserDicCB = false;
    /// -1: none is chosen; nothing: the file does not say.
    std::optional<int> userDicRow;

    bool operator==(const SubwindowSettings&) const = default;
};

SubwindowSettings parseSubwindow(std::string_view text);
std::string subwindowText(const SubwindowSettings& settings);

FolderItem subwindowFile(const FolderItem& groupFolder);
/// Nothing where the group has no such file, or it cannot be read.
std::optional<SubwindowSettings> readSubwindow(const FolderItem& groupFolder);
Result writeSubwindow(const FolderItem& groupFolder, const SubwindowSettings& settings);

} // namespace velmarin
