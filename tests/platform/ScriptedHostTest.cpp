#include "platform/ScriptedHost.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(ScriptedHost, KeyAnswersItsScriptFirstAndThenAsItIsHeld) {
    ScriptedHost host;
    host.shift.held = true;
    host.shift.next = {false, true, false};
    std::vector<bool> read;
    for (int i = 0; i < 5; ++i)
        read.push_back(host.AsyncShiftKey());
    EXPECT_EQ(read, (std::vector<bool>{false, true, false, true, true}));
    EXPECT_FALSE(host.AsyncCommandKey());
    EXPECT_FALSE(host.AsyncOptionKey());
}

TEST(ScriptedHost, QuestionsBeyondTheScriptAreRefusedAndAllAreKept) {
    ScriptedHost host;
    host.answers = {Host::Answer::Yes};
    EXPECT_EQ(host.askYesNo("first?"), Host::Answer::Yes);
    EXPECT_EQ(host.askYesNo("second?"), Host::Answer::No);
    EXPECT_EQ(host.questions, (std::vector<std::string>{"first?", "second?"}));
}

TEST(ScriptedHost, DialogsBeyondTheScriptAreCancelled) {
    ScriptedHost host;
    host.folders = {"/dictionaries"};
    host.files = {"/latin.txt"};
    EXPECT_EQ(host.SelectFolder("Where?"), "/dictionaries");
    EXPECT_EQ(host.SelectFolder("Where?"), "");
    EXPECT_EQ(host.GetOpenFile("Which?", {".txt"}), "/latin.txt");
    EXPECT_EQ(host.GetOpenFile("Which?", {}), "");
    EXPECT_EQ(host.askedExtensions.front(), std::vector<std::string>{".txt"});
}

TEST(ScriptedHost, YieldRunsTheHookButNotFromWithinItself) {
    ScriptedHost host;
    int ran = 0;
    host.onYield = [&] {
        ++ran;
        host.Yield();
    };
    host.Yield();
    host.Yield();
    EXPECT_EQ(ran, 2);
    EXPECT_EQ(host.yields, 4);
}

} // namespace
} // namespace velmarin
