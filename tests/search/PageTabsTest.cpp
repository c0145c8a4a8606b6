#include "ScriptedWindow.h"

namespace velmarin::test {
namespace {

TEST(Stepping, StaysWithinTheBookAndGoesOnFromThePageShown) {
    ScriptedWindow window;
    window.open(fruits("G", 1));
    window.walk({
        {"next", "- - 0", "no page is shown yet"},
        {"search date", "A/4 4 3 2:4"},
        {"next", "A/5 5 4 3:45"},
        {"next", "A/5 5 4 3:45", "the last page"},
        {"back", "A/4 4 3 4:454"},
        {"jump 1", "A/2 2 1 5:4542"},
        {"jump 1", "A/2 2 1 5:4542", "the page shown"},
        {"back", "A/1 1 0 6:45421"},
        {"back", "A/1 1 0 6:45421", "the first page"},
    });
}

TEST(History, RemembersWhatWasShownAndIsWalkedWithoutGrowing) {
    ScriptedWindow window;
    window.open(fruits("G", 1));
    window.walk({
        {"newer", "- - 0", "nothing seen yet"},
        {"older", "- - 0"},
        {"search apple", "A/1 1 0 2:1"},
        {"search BANANA", "A/2 2 1 3:12"},
        {"search cherry", "A/3 3 2 4:123"},
        {"newer", "A/3 3 2 4:123", "the newest page"},
        {"history 2", "A/1 1 0 2:123"},
        {"older", "A/1 1 0 2:123", "the oldest page"},
        {"newer", "A/2 2 1 3:123"},
        {"search date", "A/4 4 3 5:1234", "a new page goes to the end, the later ones stay"},
        {"older", "A/3 3 2 4:1234"},
        {"history 2", "A/1 1 0 2:1234"},
        {"history 0", "A/1 1 0", "deleted; the page stays"},
        {"older", "A/1 1 0"},
        {"next", "A/2 2 1 2:2"},
        {"history 1", "A/2 2 1", "the separator deletes too"},
    });
}

TEST(Pages, AreFoundWhateverTheirCaseAndTitledByTheirRow) {
    ScriptedWindow window;
    DictionaryBuilder dictionary("A");
    dictionary.entry("a", "P1").entry("b", "E").entry("c", "3").entry("d", "4").entry("z", "5");
    window.open(GroupBuilder("G").dictionary(dictionary.captions({{"3", "iii"}, {"p1", "i"}, {"e", "ii"}})));
    window.walk({
        {"search a", "A/P1 P1 1 2:P1 A/i, P1"},
        {"jump 1", "A/P1 P1 1 2:P1 A/i, P1", "it is the page shown"},
        {"search b", "A/E E 2 3:P1E A/ii, E"},
        {"search c", "A/3 3 0 4:P1E3 A/iii, 3"},
        {"search d", "A/4 4 0 5:P1E34", "a page without a row"},
    });
}

TEST(Pages, OneThatCannotBeShownLeavesNameMenuAndHistory) {
    ScriptedWindow window;
    DictionaryBuilder dictionary("A");
    dictionary.entry("a", "1").entry("b", "gone").entry("c", "../mPimg/e").entry("d", "bad").entry("z", "2");
    dictionary.without("mImg/gone").without("mImg/../mPimg/e").extraPicture("e").imageIndex({"1", "2"});
    window.open(GroupBuilder("G").dictionary(dictionary));
    window.pages[0].broken = {"bad"};
    window.walk({
        {"search a", "A/1 1 0 2:1"},
        {"search b", "A/1 1 0 2:1 A/gone No Picture missing"},
        {"search c", "A/1 1 0 2:1 A/../mPimg/e No Picture missing", "outside the folder"},
        {"next", "A/2 2 1 3:12", "the page before them is still there to step from"},
        {"search d", "- 2 1 3:12 A/bad No Picture broken"},
        {"back", "- 2 1 3:12 A/bad No Picture broken", "no page is there"},
        {"search a", "A/1 1 0 4:121"},
    });
}

TEST(Errata, FollowTheLineOfTheLastSearchAndNotThePage) {
    ScriptedWindow window;
    DictionaryBuilder dictionary("A");
    dictionary.entry("apple", "1", {"e1", "e2"}).entry("banana", "2").entry("cherry", "", {"e3"}).entry("zzz", "3");
    window.open(fruits("G", 2, dictionary));
    window.walk({
        {"search apple", "A/1 1 0 2:1 [e1,e2]"},
        {"next", "A/2 2 1 3:12 [e1,e2]"},
        {"search zzzz", "A/2 2 1 3:12 [e1,e2]", "after the last entry"},
        {"search cherry", "A/2 2 1 3:12 [e3]", "a line without a page"},
        {"search aaa", "A/2 2 1 3:12", "before the first entry"},
        {"search apple", "A/1 1 0 4:121 [e1,e2]"},
    });
    for (const auto& [action, opened] : {std::pair("erratum 1", "G/A/mPimg/e2 0"), {"erratum 2", "no file 0"}})
        EXPECT_EQ((window.act(action), window.opened), opened);
}

TEST(Fit, IsTheDictionarysAndAChoiceShowsAtOnce) {
    ScriptedWindow window;
    window.open(fruits("G", 2).preferences("G\t0\t\nA\t1\nB\t7\n"));
    window.walk({{"search apple", "A/1 1 0 2:1"}, {"fit 0", "A/1 1 0 2:1"}, {"next", "A/2 2 1 3:12"}});
    EXPECT_EQ(window.pages[0].fit, 0);
    EXPECT_EQ(window.pages[1].fit, 7);
}

TEST(Tabs, CommandsGoRoundAndToTheEndsAndEachTabStepsByItself) {
    ScriptedWindow window;
    window.open(fruits("G", 3));
    const struct {
        const char* action;
        int front;
        const char* names;
    } steps[] = {
        {"search banana", 0, "2 2 2"}, {"left", 2, "2 2 2"},  {"next", 2, "2 2 3"},   {"right", 0, "2 2 3"},
        {"back", 0, "1 2 3"},          {"right", 1, "1 2 3"}, {"jump 4", 1, "1 5 3"}, {"last", 2, "1 5 3"},
        {"older", 2, "1 5 2"},         {"first", 0, "1 5 2"},
    };
    for (const auto& step : steps) {
        window.act(step.action);
        EXPECT_EQ(window.front, step.front) << step.action;
        EXPECT_EQ(window.names(), step.names) << step.action;
    }
    window.model.tabs.mUpDown(1, 2);
    EXPECT_EQ(window.pages[2].scrolled, 1);
    window.model.tabs.dropPage(0);
    EXPECT_EQ(window.state().substr(0, 4), "- 1 ");
    window.model.tabs.mNextBack(0, 1);
    EXPECT_EQ(window.names(), "1 5 2") << "the tab in front shows nothing to step from";
    window.act("last");
    window.model.tabs.mNextBack(0, 1);
    EXPECT_EQ(window.names(), "1 4 2") << "another tab is stepped";
}

} // namespace
} // namespace velmarin::test
