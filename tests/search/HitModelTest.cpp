#include "ScriptedWindow.h"

namespace velmarin::test {
namespace {

TEST(ListMode, ASearchFillsTheListAndARowShowsItsHitAlone) {
    ScriptedWindow window;
    DictionaryBuilder first("A");
    first.entry("apple", "x", {"e"}).entry("banana", "y").entry("zzz", "z").format("", true);
    window.open(fruits("Many", 22, first));
    EXPECT_TRUE(window.listShown);
    window.walk({
        {"search banana", "A/y - 1", "the first row, independent or not"},
        {"row 3", "D/2 - 1"},
        {"row -1", "D/2 - 1"},
        {"row 22", "D/2 - 1"},
        {"row 21", "V/2 - 1"},
        {"search aaa", "- - 0 A/ !A", "no page in the line, so no file is at fault"},
    });
    EXPECT_EQ(window.info, "We cant finde the picture. This dictionary has some probleme: A");
    EXPECT_EQ(window.infoReason, "");
    EXPECT_EQ(window.rows.size(), 22U);
    EXPECT_EQ(window.selected, 0);
    window.pages[0].broken = {"2"};
    window.walk({{"search banana", "A/y - 1"}, {"row 4", "- - 1 E/2 broken !E"}});
    EXPECT_EQ(window.infoReason, "2: broken");
    window.pages[0].broken.clear();
    window.walk({{"next", "- - 1 E/2 broken !E", "no page to step from"}, {"row 4", "E/2 - 1"}});
}

TEST(ListMode, StepsFollowTheHitAndJumpsAndErrataTheFirstDictionary) {
    ScriptedWindow window;
    window.open(fruits("Many", 22, DictionaryBuilder("A").entry("apple", "x", {"e"}).entry("zzz", "3")));
    window.walk({
        {"search apple", "A/x - 0 [e]"},
        {"row 1", "B/1 - 0"},
        {"next", "B/2 2 1 2:2", "a step follows the hit's dictionary"},
        {"row 2", "C/1 2 0 2:2", "a hit leaves the name"},
        {"next", "C/1 2 1 2:2", "a page of the name in the label"},
        {"jump 1", "C/3 3 2 3:23", "row 1 of the first dictionary's pages"},
        {"jump 0", "C/3 3 0 3:23 C/x No Picture missing", "its page x is not in the one shown"},
        {"jump 4", "C/3 3 4 3:23 C/x No Picture missing", "it has no row 4"},
        {"older", "C/2 2 1 2:23", "the history belongs to the tab"},
        {"row 5", "F/1 2 0 2:23"},
        {"newer", "F/3 3 2 3:23", "and shows its pages in any dictionary"},
        {"row 0", "A/x 3 0 3:23 [e]"},
    });
    EXPECT_EQ(window.model.group.dictionary(0)->ImageHistory, (std::vector<std::string>{"2", "3"}));
    window.act("erratum 0");
    EXPECT_EQ(window.opened, "Many/A/mPimg/e 0");
}

TEST(ListMode, AHitTakesTheChosenFitAndAStepItsDictionarys) {
    ScriptedWindow window;
    window.open(fruits("Many", 22));
    window.walk({
        {"search banana", "A/2 - 1"},
        {"fit 1", "A/2 - 1"},
        {"row 5", "F/2 - 1"},
        {"next", "F/3 3 2 2:3 fit 3"},
        {"row 0", "A/2 3 1 2:3"},
        {"back", "A/1 1 0 3:31", "the choice fell on the first dictionary"},
    });
}

TEST(ListMode, StaysForLaterGroupsWithTheRows) {
    ScriptedWindow window;
    window.open(fruits("Many", 22));
    window.walk({{"search banana", "A/2 - 1"}, {"row 5", "F/2 - 1"}});
    window.open(GroupBuilder("Two").dictionary(fruit("E")).dictionary(fruit("F").captions({{"1", "only"}})));
    EXPECT_EQ(window.rows.size(), 22U);
    EXPECT_EQ(window.pages[0].jumpRows, "only") << "every menu is built in the first set";
    window.model.search.searchAll("apple");
    window.walk({{"front 0", "E/1 1 0 2:1 E/only, 1", "no hit is chosen yet"}, {"search cherry", "E/3 1 2 2:1"}});
    EXPECT_EQ(Join(window.rows, " "), "E F");
    window.model.search.searchAll("banana");
    window.walk({{"right", "E/2 2 0 3:12 tab F off", "every tab shows the hit's dictionary"}});
    window.open(fruits("Many", 22));
    EXPECT_EQ(window.rows.size(), 24U) << "the new rows follow the old";
}

TEST(ListMode, RowsOfASecondWindowGoToTheFirstOnesListAndHitsStay) {
    ScriptedWindow first;
    ScriptedWindow second(&first);
    first.open(fruits("Many", 22));
    first.walk({{"search cherry", "A/3 - 2"}, {"row 3", "D/3 - 2"}});
    second.open(fruits("More", 24));
    second.walk({{"search banana", "- - 0 off"}, {"row 2", "C/2 - 1"}});
    EXPECT_EQ(second.rows.size(), 24U) << "the rows of opening the group";
    EXPECT_EQ(first.rows.size(), 24U);
    EXPECT_EQ(first.state(), "A/3 - 2") << "its first row shows its own hit";
}

} // namespace
} // namespace velmarin::test
