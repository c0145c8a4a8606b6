#pragma once

#include <optional>

namespace velmarin {

/// The place in the page list after a step: direction 1 a page forward, any other a page back. Nothing where the step
/// leads nowhere: at either end of the list, and where the list is empty.
/// @param menuValue the place now, which is the MenuValue of the jump menu
std::optional<int> steppedPage(int direction, int menuValue, int pageCount);

/// Rows of the history menu before the first page: "Delete" and the separator.
inline constexpr int kHistoryRowsBeforePages = 2;

/// The MenuValue of the history menu after a step: direction 0 towards the oldest page, any other towards the newest.
/// Nothing where the cursor is at that end or the history is empty.
std::optional<int> steppedHistory(int direction, int menuValue, int historyCount);

} // namespace velmarin
