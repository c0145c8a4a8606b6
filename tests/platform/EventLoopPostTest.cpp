#include "platform/EventLoopPost.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(EventLoopPost, PutOffActionRunsFromTheEventLoopAndNotInsideTheLoopThatPutItOff) {
    BusyState state(eventLoopPost());
    bool ran = false;
    {
        const Busy guard(state);
        state.whenFree([&] { ran = true; });
        QCoreApplication::processEvents();
        EXPECT_FALSE(ran);
    }
    EXPECT_FALSE(ran);
    QCoreApplication::processEvents();
    EXPECT_TRUE(ran);
}

} // namespace
} // namespace velmarin
