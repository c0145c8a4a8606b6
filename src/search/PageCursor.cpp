#include "search/PageCursor.h"

namespace velmarin {

namespace {

std::optional<int> within(int value, int first, int count) {
    if (value < first || value >= first + count)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<int> steppedPage(int direction, int menuValue, int pageCount) {
    return within(direction == 1 ? menuValue + 1 : menuValue - 1, 0, pageCount);
}

std::optional<int> steppedHistory(int direction, int menuValue, int historyCount) {
    return within(direction != 0 ? menuValue + 1 : menuValue - 1, kHistoryRowsBeforePages, historyCount);
}

} // namespace velmarin
