#include "platform/EventLoopPost.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(EventLoopPost, RunsAnActionFromTheEventLoop) {
    const BusyState::Post post = eventLoopPost();
    bool ran = false;
    post([&ran] { ran = true; });
    EXPECT_FALSE(ran);
    QCoreApplication::processEvents();
    EXPECT_TRUE(ran);
}

} // namespace
} // namespace velmarin
