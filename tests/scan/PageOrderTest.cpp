#include "scan/PageOrder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(PageOrder, ComparesNumbersByValue) {
    std::vector<std::string> names{"p10.tif", "p9.tif", "p010a.tif", "P2.tif", "p.tif", "q1.tif", "p02.tif"};
    sortPages(names);
    EXPECT_EQ(names,
              (std::vector<std::string>{"p.tif", "p02.tif", "P2.tif", "p9.tif", "p10.tif", "p010a.tif", "q1.tif"}));
}

} // namespace
} // namespace velmarin
