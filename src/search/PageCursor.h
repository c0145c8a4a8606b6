#pragma once

#include <optional>

namespace velmarin {

/// The place in the page list after a step: direction 1 is a page forward, any other a page back. Returns nullopt if
/// there is no page at that place.
/// @param menuValue the place now, which is the MenuValue of the jump menu
std::optional<int> steppedPage(int direction, int menuValue, int pageCount);

/// Rows of the history menu before the first page: "Delete" and the separator.
inline constexpr int kHistoryRowsBeforePages = 2;

/// The MenuValue of the history menu after a step: direction 0 is towards the oldest page, any other towards the
/// newest. Returns nullopt if there is no page at that place.
std::optional<int> steppedHistory(int direction, int menuValue, int historyCount);

} // namespace velmarin
