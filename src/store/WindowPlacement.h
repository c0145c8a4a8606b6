#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"

#include <optional>

namespace velmarin {

/// The file of the first main window.
inline constexpr const char* kMainWindowPlacement = "MainWindow";

/// The line of a placement's file: Left, Top, Width, Height, a TAB after each.
struct WindowPlacement {
    int left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};
/// Missing numbers are 0; nullopt for a file that is missing, unreadable or empty, as a power loss can leave it.
std::optional<WindowPlacement> readWindowPlacement(const FolderItem& preferencesFolder,
                                                   const char* file = kMainWindowPlacement);
Result writeWindowPlacement(const FolderItem& preferencesFolder, const WindowPlacement& placement,
                            const char* file = kMainWindowPlacement);

} // namespace velmarin
