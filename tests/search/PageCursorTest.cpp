#include "search/PageCursor.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmarin {
namespace {

struct Case {
    const char* reason;
    int direction, menuValue, count;
    std::optional<int> expected;
};

void expectEach(const std::vector<Case>& cases, std::optional<int> (*step)(int, int, int)) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(step(c.direction, c.menuValue, c.count), c.expected);
    }
}

TEST(PageCursor, StepsThroughThePagesAndStaysWithinThem) {
    expectEach(
        {
            {"forward", 1, 0, 3, 1},
            {"back", 0, 2, 3, 1},
            {"any direction but 1 is back", 7, 2, 3, 1},
            {"forward on the last page keeps the page", 1, 2, 3, std::nullopt},
            {"back on the first page does nothing", 0, 0, 3, std::nullopt},
            {"a single page", 1, 0, 1, std::nullopt},
            {"no pages", 1, 0, 0, std::nullopt},
            {"no pages, backwards", 0, 0, 0, std::nullopt},
            {"a value beyond the list cannot be read", 0, 9, 3, std::nullopt},
        },
        steppedPage);
}

TEST(HistoryCursor, StepsThroughThePagesSeenAndStaysWithinThem) {
    expectEach(
        {
            {"back from the newest of two", 0, 3, 2, 2},
            {"forward from the oldest of two", 1, 2, 2, 3},
            {"back on the oldest row does nothing", 0, 2, 2, std::nullopt},
            {"forward on the newest row does nothing", 1, 3, 2, std::nullopt},
            {"forward on an empty history, value 0", 1, 0, 0, std::nullopt},
            {"forward on an empty history, value 1", 1, 1, 0, std::nullopt},
            {"back after the history was deleted", 0, 1, 0, std::nullopt},
            {"forward from the separator reaches the oldest page", 1, 1, 2, 2},
        },
        steppedHistory);
}

} // namespace
} // namespace velmarin
