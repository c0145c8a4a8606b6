#include "ScriptedWindow.h"

namespace velmarin::test {
namespace {

TEST(SearchModel, TheCheckBoxShiftAndIndependenceDecideWhichTabsAreSearched) {
    const std::vector<int> none, all{2, 0, 1, 2, -1};
    const struct {
        const char* reason;
        bool separately;
        std::deque<bool> shift; ///< at each look
        bool independent;       ///< the dictionary of the first tab
        int front;
        const char* names;
        std::vector<int> progress;
    } cases[] = {
        {"all tabs", false, {false, false}, false, 1, "2 2 2", all},
        {"Shift: the front tab", false, {true}, false, 1, "- 2 -", none},
        {"separately: the front tab", true, {false}, false, 2, "- - 2", none},
        {"separately with Shift: all tabs", true, {true, true}, false, 2, "2 2 2", all},
        {"Shift pressed between the looks", false, {false, true}, false, 0, "- - -", none},
        {"Shift released between the looks", true, {true, false}, false, 0, "- - -", none},
        {"an independent tab in front is searched alone", false, {false, false}, true, 0, "2 - -", all},
        {"an independent tab behind others is left out", false, {false, false}, true, 2, "- 2 2", all},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        ScriptedWindow window;
        window.open(fruits("G", 3, c.independent ? fruit("A").format("", true) : fruit("A")));
        window.model.search.setSeparately(c.separately);
        window.act("front " + std::to_string(c.front));
        window.host.shift.next = c.shift;
        window.act("search banana");
        EXPECT_EQ(window.names(), c.names);
        EXPECT_EQ(window.progress, c.progress);
        const bool contradicted = c.shift.back() != c.shift.front();
        EXPECT_EQ(Join(window.host.messages, "|"), contradicted ? "OKBT unexpected error at ACTION." : "");
        EXPECT_TRUE(window.host.shift.next.empty());
    }
}

TEST(SearchModel, IntoTheListMovesTheBarByTensAndKeepsTheWindowBusy) {
    ScriptedWindow window;
    window.open(fruits("Many", 25));
    window.model.search.setSeparately(true);
    bool busy = true;
    window.host.onYield = [&] { busy = busy && window.busy.busy(); };
    window.act("search apple");
    EXPECT_EQ(window.progress, (std::vector<int>{24, 0, 10, 20, -1}));
    EXPECT_TRUE(busy);
    EXPECT_FALSE(window.busy.busy());
    window.model.search.searchAll("banana");
    window.walk({{"front 0", "A/2 2 1 2:2", "only the first has a tab"}});
}

TEST(SearchModel, AGroupWithoutDictionariesSearchesNothing) {
    ScriptedWindow window;
    EXPECT_TRUE(window.open(GroupBuilder("Empty")));
    window.act("search banana");
    window.model.search.setSeparately(true);
    window.walk({{"search banana", "- - 0 off"}, {"next", "- - 0 off"}, {"older", "- - 0 off"}});
}

TEST(GroupOpener, MakesTabsUpTo21AndAListFrom22) {
    for (const bool list : {false, true}) {
        ScriptedWindow window;
        EXPECT_TRUE(window.open(fruits("G", list ? 22 : 21).preferences("Title\t1\t\nB\t1\n")));
        EXPECT_EQ(window.listShown, list);
        EXPECT_EQ(window.pages.size(), list ? 1U : 21U);
        EXPECT_EQ(window.captions.front(), list ? "Tab 0" : "B");
        EXPECT_EQ(window.model.group.dictionary(0)->ImageMode, list ? 3 : 1);
        EXPECT_EQ(window.pages.back().paging, !list);
        EXPECT_EQ(window.model.group.pDicGroupName, "Title");
        EXPECT_TRUE(window.model.search.separately());
    }
}

TEST(GroupOpener, ADictionaryWithoutPagesLeavesItsOwnTabEmpty) {
    ScriptedWindow window;
    EXPECT_FALSE(window.open(fruits("G", 2, fruit("A").without("mImg")).preferences("G\t0\t\nA\t2\nB\t0\n")));
    EXPECT_FALSE(window.pages[0].paging);
    EXPECT_TRUE(window.pages[1].paging);
    window.act("search cherry");
    EXPECT_EQ(window.names(), "- 3");
    EXPECT_TRUE(window.open(fruits("Whole", 1))) << "the failure belongs to the group before";
}

TEST(GroupOpener, LeavingDropsAllButListModeAndTheCheckBox) {
    ScriptedWindow window;
    window.open(fruits("G", 2).preferences("G\t1\t\n"));
    window.walk({{"search banana", "A/2 2 1 2:2"}, {"last", "- - 0"}, {"search banana", "B/2 2 1 2:2"}});
    EXPECT_THROW(window.model.opener.read(FolderItem(window.folder.write("Bad", "a file"))), NilObjectException);
    EXPECT_EQ(window.state(), "- - 0 off");
    EXPECT_EQ(Join(window.captions, ","), "Tab 0");
    EXPECT_TRUE(window.model.group.pDictionaryGroupFolder.isNil());
    EXPECT_EQ(window.model.group.pDicGroupName, "");
    EXPECT_TRUE(window.model.search.separately());
    window.open(fruits("H", 1));
    window.walk({{"search banana", "A/2 2 1 2:2", "another page of that name"}});
}

} // namespace
} // namespace velmarin::test
