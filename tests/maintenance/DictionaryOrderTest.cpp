#include "maintenance/DictionaryOrder.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace {

TEST(DictionaryOrder, MovesARowBeforeAnother) {
    const struct {
        std::size_t from, before;
        std::vector<std::string> rows;
    } cases[] = {{0, 2, {"b", "a", "c", "d"}},
                 {0, 4, {"b", "c", "d", "a"}},
                 {3, 0, {"d", "a", "b", "c"}},
                 {2, 1, {"a", "c", "b", "d"}},
                 {1, 1, {}},
                 {1, 2, {}},
                 {3, 4, {}},
                 {4, 0, {}},
                 {0, 5, {}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.from) + " before " + std::to_string(each.before));
        DictionaryOrder order{"title", {"a", "b", "c", "d"}};
        const auto unchanged = order.rows;
        EXPECT_EQ(order.move(each.from, each.before), !each.rows.empty());
        EXPECT_EQ(order.rows, each.rows.empty() ? unchanged : each.rows);
    }
}

} // namespace
} // namespace velmarin::test
