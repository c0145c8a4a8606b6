#pragma once

#include "files/FolderItem.h"
#include "store/WindowPlacement.h"

#include <optional>

namespace velmarin {

/// Where a WorkshopWindow was when it was last closed: the file "WorkshopWindow", a line of six numbers with a TAB
/// after each: Left, Top, Width, Height as in WindowPlacement, the width of the list, and 1 if the window was
/// maximized.
struct WorkshopPlacement {
    WindowPlacement window = {}; ///< while it is not maximized
    int listWidth = 0;           ///< 0: not known
    bool maximized = false;
};

/// nullopt for a file that is missing or unreadable.
std::optional<WorkshopPlacement> readWorkshopPlacement(const FolderItem& preferencesFolder);
Result writeWorkshopPlacement(const FolderItem& preferencesFolder, const WorkshopPlacement& placement);

} // namespace velmarin
