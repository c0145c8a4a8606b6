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

    BusyState::Action write(const std::string& word) {
        return [this, word] { log += word; };
    }
    BusyState::Action writeStopWanted() {
        return [this] { log += state.stopWanted() ? "!" : "-"; };
    }
    void turnLoop() {
        while (!posted.empty()) {
            const auto action = std::move(posted.front());
            posted.pop_front();
            action();
        }
    }
    /// "[" begins a guard and "]" ends it, a letter asks for an action that writes it, "." turns the loop and writes
    /// itself, "?" writes whether a stop is wanted, "f" and "s" ask for that in whenFree and whenStopped.
    void run(const std::string& script) {
        std::vector<std::unique_ptr<Busy>> guards;
        for (const char step : script) {
            if (step == '[')
                guards.push_back(std::make_unique<Busy>(state));
            else if (step == ']')
                guards.pop_back();
            else if (step == '.')
                turnLoop(), log += '.';
            else if (step == '?')
                writeStopWanted()();
            else if (step == 's')
                state.whenStopped(writeStopWanted());
            else
                state.whenFree(step == 'f' ? writeStopWanted() : write(std::string(1, step)));
        }
    }
};

TEST_F(BusyTest, ActionsWaitForTheLastGuardAndRunInOrderFromTheLoop) {
    const auto listener = state.onChange([this](bool busy) { log += busy ? "<" : ">"; });
    const struct {
        const char* reason;
        std::string script, log;
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

TEST_F(BusyTest, ADroppedListenerHearsNothing) {
    auto listener = state.onChange([this](bool) { log += "x"; });
    listener.reset();
    run("[]");
    EXPECT_EQ(log, "");
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
        state.whenFree(write("b"));
    }
    EXPECT_THROW(turnLoop(), std::runtime_error);
    EXPECT_EQ(log, "()");
    turnLoop();
    EXPECT_EQ(log, "()b");
}

TEST(BusyLifetime, PostedTurnOutlivesTheState) {
    std::deque<BusyState::Action> posted;
    bool ran = false;
    {
        BusyState state([&](BusyState::Action action) { posted.push_back(std::move(action)); });
        const Busy guard(state);
        state.whenFree([&] { ran = true; });
    }
    ASSERT_EQ(posted.size(), 1u);
    posted.front()();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace velmarin
