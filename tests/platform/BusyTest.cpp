#include "platform/Busy.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace velmarin {
namespace {

/// A state whose event loop is turned by hand.
struct BusyTest : ::testing::Test {
    std::deque<BusyState::Action> posted;
    BusyState state{[this](BusyState::Action action) { posted.push_back(std::move(action)); }};
    std::string log;

    BusyState::Action write(const std::string& word) {
        return [this, word] { log += word; };
    }
    void turnLoop() {
        while (!posted.empty()) {
            const auto action = std::move(posted.front());
            posted.pop_front();
            action();
        }
    }
};

TEST_F(BusyTest, PutOffActionsRunInOrderAfterTheLastOfNestedGuards) {
    {
        const Busy outer(state);
        state.whenFree(write("a"));
        {
            const Busy inner(state);
            state.whenFree(write("b"));
        }
        EXPECT_TRUE(state.busy());
        turnLoop();
        EXPECT_EQ(log, "");
    }
    EXPECT_EQ(log, "") << "the guard's owner has not finished yet";
    turnLoop();
    EXPECT_EQ(log, "ab");
}

TEST_F(BusyTest, ActionAskedForBehindWaitingOnesKeepsItsPlace) {
    {
        const Busy guard(state);
        state.whenFree(write("a"));
    }
    state.whenFree(write("b"));
    EXPECT_EQ(log, "");
    turnLoop();
    EXPECT_EQ(log, "ab");
}

TEST_F(BusyTest, TurnThatFallsIntoANewLoopWaitsForItsEnd) {
    {
        const Busy guard(state);
        state.whenFree(write("a"));
    }
    {
        const Busy next(state);
        turnLoop();
        EXPECT_EQ(log, "");
    }
    turnLoop();
    EXPECT_EQ(log, "a");
}

TEST_F(BusyTest, ActionThatLoopsItselfHoldsUpThoseBehindIt) {
    {
        const Busy guard(state);
        state.whenFree([this] {
            const Busy own(state);
            log += "(";
            turnLoop();
            log += ")";
        });
        state.whenFree(write("b"));
    }
    turnLoop();
    EXPECT_EQ(log, "()b");
}

TEST_F(BusyTest, ActionThatThrowsLeavesThoseBehindItToRun) {
    {
        const Busy guard(state);
        state.whenFree([] { throw std::runtime_error("gone"); });
        state.whenFree(write("b"));
    }
    const auto first = std::move(posted.front());
    posted.pop_front();
    EXPECT_THROW(first(), std::runtime_error);
    turnLoop();
    EXPECT_EQ(log, "b");
}

TEST_F(BusyTest, ListenersHearOfTheFirstGuardAndTheLastEndBeforePutOffActionsRun) {
    auto handle = state.onChange([this](bool busy) { log += busy ? "[" : "]"; });
    {
        const Busy outer(state);
        const Busy inner(state);
        state.whenFree(write("a"));
        EXPECT_EQ(log, "[");
    }
    turnLoop();
    EXPECT_EQ(log, "[]a");
    handle.reset();
    { const Busy guard(state); }
    EXPECT_EQ(log, "[]a");
}

TEST_F(BusyTest, StopIsWantedUntilTheActionThatEndsTheRunHasItsTurn) {
    const auto writeWhetherStopIsWanted = [this] { log += state.stopWanted() ? "stop " : "go on "; };
    {
        const Busy guard(state);
        state.whenFree(writeWhetherStopIsWanted);
        writeWhetherStopIsWanted();
        state.whenStopped(writeWhetherStopIsWanted);
        writeWhetherStopIsWanted();
    }
    turnLoop();
    EXPECT_EQ(log, "go on stop stop go on ") << "what was put off before must not hold it up either";
    state.whenStopped(writeWhetherStopIsWanted);
    EXPECT_EQ(log, "go on stop stop go on go on ");
}

TEST(BusyLifetime, PostedTurnOutlivesTheState) {
    std::deque<BusyState::Action> posted;
    bool ran = false;
    {
        BusyState state([&](BusyState::Action action) { posted.push_back(std::move(action)); });
        {
            const Busy guard(state);
            state.whenFree([&] { ran = true; });
        }
    }
    ASSERT_EQ(posted.size(), 1u);
    posted.front()();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace velmarin
