#include "platform/Busy.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace velmarin {
namespace {

/// A state whose event loop is turned by hand.
struct BusyTest : ::testing::Test {
    std::deque<BusyState::Action> posted;
    BusyState state{[this](BusyState::Action action) { posted.push_back(std::move(action)); }};
    std::string log;

    void turnLoop() {
        while (!posted.empty()) {
            const auto action = std::move(posted.front());
            posted.pop_front();
            action();
        }
    }
    /// "[" begins a guard and "]" ends it, "." turns the loop, "?" writes whether a stop is wanted, "f" and "s" ask for
    /// that in whenFree and whenStopped, another letter asks for an action that writes it.
    void run(const std::string& script) {
        std::vector<std::unique_ptr<Busy>> guards;
        const auto writeStopWanted = [this] { log += state.stopWanted() ? "!" : "-"; };
        for (const char step : script) {
            if (step == '[')
                guards.push_back(std::make_unique<Busy>(state));
            else if (step == ']')
                guards.pop_back();
            else if (step == '.')
                turnLoop(), log += '.';
            else if (step == '?')
                writeStopWanted();
            else if (step == 's')
                state.whenStopped(writeStopWanted);
            else if (step == 'f')
                state.whenFree(writeStopWanted);
            else
                state.whenFree([this, step] { log += step; });
        }
    }
};

TEST_F(BusyTest, ActionsWaitForTheLastGuardAndRunInOrderFromTheLoop) {
    const auto listener = state.onChange([this](bool busy) { log += busy ? "<" : ">"; });
    state.onChange([this](bool) { log += "x"; }).reset();
    const struct {
        const char *reason, *script, *log;
    } rows[] = {
        {"nothing under way", "a", "a"},
        {"nested guards", "[a[b].].", "<.>ab."},
        {"behind one that waits", "[a]b.", "<>ab."},
        {"a turn inside a new loop", "[a][.].", "<><.>a."},
        {"a stop ends what waits before it", "[f?s?].s", "<-!>!-.-"},
    };
    for (const auto& row : rows) {
        log.clear();
        run(row.script);
        EXPECT_EQ(log, row.log) << row.reason;
    }
}

TEST_F(BusyTest, ActionsAfterOneThatLoopsOrThrowsStillRun) {
    {
        const Busy guard(state);
        state.whenFree([this] {
            const Busy own(state);
            log += "(";
            turnLoop();
            log += ")";
        });
        state.whenFree([] { throw std::runtime_error("gone"); });
        state.whenFree([this] { log += 'b'; });
    }
    EXPECT_THROW(turnLoop(), std::runtime_error);
    EXPECT_EQ(log, "()");
    turnLoop();
    EXPECT_EQ(log, "()b");
}

TEST(BusyLifetime, PostedTurnOutlivesTheState) {
    std::deque<BusyState::Action> posted;
    {
        BusyState state([&](BusyState::Action action) { posted.push_back(std::move(action)); });
        const Busy guard(state);
        state.whenFree([] { FAIL() << "its state is gone"; });
    }
    ASSERT_EQ(posted.size(), 1u);
    posted.front()();
}

} // namespace
} // namespace velmarin
