#include "maintenance/MaintenanceResult.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace {

TEST(FailureMessage, ListsItemsWithReasonsUpToALimit) {
    MaintenanceResult result;
    EXPECT_EQ(failureMessage(result), "");
    const auto fail = [&] { result.fail(FolderItem("/d/\xFF" + std::to_string(result.failures.size())), "broken"); };
    fail();
    EXPECT_EQ(failureMessage(result), "This item could not be handled:\n\n/d/\xEF\xBF\xBD"
                                      "0\n    broken");
    while (result.failures.size() < 200)
        fail();
    EXPECT_TRUE(failureMessage(result).starts_with("These items could not be handled:\n\n/d/"));
    EXPECT_TRUE(failureMessage(result).ends_with("199\n    broken"));
    fail();
    EXPECT_TRUE(failureMessage(result).ends_with("199\n    broken\n\nand 1 more."));
}

} // namespace
} // namespace velmarin::test
