#include "maintenance/DictionaryOrder.h"

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(DictionaryOrder, ARowMovesBeforeTheOneItIsDroppedOn) {
    const std::vector<std::string> rows{"a", "b", "c", "d"};
    for (std::size_t from = 0; from <= 5; ++from)
        for (std::size_t before = 0; before <= 5; ++before) {
            SCOPED_TRACE(std::to_string(from) + " before " + std::to_string(before));
            DictionaryOrder order{"", rows};
            std::vector<std::string> expected = rows;
            if (from < 4 && before <= 4) {
                expected.insert(expected.begin() + static_cast<long>(before), rows[from]);
                expected.erase(expected.begin() + static_cast<long>(before <= from ? from + 1 : from));
            }
            EXPECT_EQ(order.move(from, before), expected != rows);
            EXPECT_EQ(order.rows, expected);
        }
}

TEST(DictionaryOrder, ItsLinesAreTheGroupThenTheDictionaries) {
    EXPECT_EQ((DictionaryOrder{"Old ones", {"b", "a", "b"}}.lines()),
              (std::vector<std::string>{"Old ones", "b", "a", "b"}));
    EXPECT_EQ(DictionaryOrder{}.lines(), std::vector<std::string>{""});
}

} // namespace
} // namespace velmarin::test
