#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/ProgressBar.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "shell/SideLink.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

GroupBuilder manyFruits(const std::string& name) {
    GroupBuilder group(name);
    for (int i = 0; i < 25; ++i)
        group.dictionary(fruit("D" + std::to_string(10 + i)));
    return group;
}

TEST(ListMode, EveryDictionaryGivesARowAndEachRowShowsItsPage) {
    Started run({manyFruits("Many")});
    auto* rows = run.control<ListBox>("LB");
    EXPECT_EQ(rows->rowCount(), 25);
    EXPECT_EQ(run.control<BevelButton>("BVimage.0")->wholeText(), "Image size") << "its fit has no row";
    EXPECT_EQ(run.control<BevelButton>("BVimage.0")->MenuValue(), 3);
    std::vector<int> bar;
    run.host.onYield = [&] {
        if (const int value = run.control<ProgressBar>("PB")->Value(); bar.empty() || bar.back() != value)
            bar.push_back(value);
    };
    run.search("banana");
    EXPECT_EQ(bar, (std::vector<int>{0, 10, 20}));
    EXPECT_EQ(rows->rowCount(), 25);
    EXPECT_EQ(rows->ListIndex(), 0);
    EXPECT_EQ(rows->List(3), "D13");
    for (int row = 0; row < 25; ++row) {
        rows->setListIndex(row);
        EXPECT_TRUE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
        EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), rows->List(row));
        EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), 1);
    }
    EXPECT_EQ(run.imageName(0), "") << "a chosen hit touches neither name nor history";
    run.click("BVnext.0");
    EXPECT_EQ(run.imageName(0), "3.bmp");
    EXPECT_EQ(run.control<BevelButton>("BVHistory.0")->rowCount(), 3);
    run.search("apple");
    EXPECT_EQ(rows->rowCount(), 25) << "a second search empties the list first";
}

TEST(ListMode, AClickOnARowShowsItsPageAndLeavesTheKeyboardToTheField) {
    Started run({manyFruits("Many")});
    run.search("banana");
    QApplication::setActiveWindow(&run.window());
    auto* rows = run.control<ListBox>("LB");
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualRect(rows->model()->index(3, 0)).center());
    EXPECT_EQ(rows->ListIndex(), 3);
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "D13");
    EXPECT_TRUE(run.control<QLineEdit>("SearchEF")->hasFocus());
}

TEST(ListMode, AChosenHitKeepsTheImageSizeAndAStepGoesBackToItsDictionarys) {
    Started run({manyFruits("Many")});
    run.search("banana");
    run.choose("BVimage.0", 1);
    run.control<ListBox>("LB")->setListIndex(5);
    const auto* canvas = run.control<SmartCanvas>("MainCanvas.0");
    EXPECT_EQ(canvas->Mode(), 1);
    run.click("BVnext.0");
    EXPECT_EQ(canvas->Mode(), 3);
}

TEST(ListMode, ASearchFromTheSideWindowPassesOverDictionariesWithoutATab) {
    Started run({manyFruits("Many")});
    run.search("banana");
    run.window().sideLink().searchAll("cherry");
    EXPECT_EQ(run.imageName(0), "3.bmp");
    EXPECT_TRUE(run.host.messages.empty());
}

TEST(ListMode, ARowWithoutAPageSaysSoReadably) {
    Started run({manyFruits("Many")});
    run.search("aaa");
    auto* info = run.control<QLabel>("InfoST");
    EXPECT_EQ(info->text(), "We cant finde the picture. This dictionary has some probleme: D10");
    EXPECT_GE(info->height(), info->fontMetrics().height());
    EXPECT_FALSE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
    EXPECT_TRUE(run.control<BevelButton>("BVjump.0")->isEnabled());
    run.search("banana");
    EXPECT_EQ(info->text(), "");
    std::filesystem::remove(run.groupFolder("Many") / "D12" / "mImg" / "2.bmp");
    run.control<ListBox>("LB")->setListIndex(1);
    EXPECT_EQ(run.control<SmartCanvas>("MainCanvas.0")->accessibleDescription(), "D11, 2.bmp");
    EXPECT_EQ(info->toolTip(), "");
    run.control<ListBox>("LB")->setListIndex(2);
    EXPECT_EQ(run.control<SmartCanvas>("MainCanvas.0")->accessibleDescription(), "D12, 2.bmp: there is no such file");
    EXPECT_EQ(info->toolTip(), info->text() + "\n2.bmp: there is no such file");
}

TEST(ListMode, JumpsReadTheFirstDictionarysPages) {
    Started run;
    GroupBuilder group("Many");
    group.dictionary(DictionaryBuilder("A0").entry("apple", "first.bmp").entry("zzz", "second.bmp"));
    for (int i = 0; i < 24; ++i)
        group.dictionary(fruit("D" + std::to_string(10 + i)));
    run.group(group).start();
    run.search("apple");
    run.control<ListBox>("LB")->setListIndex(1);
    run.choose("BVjump.0", 1);
    EXPECT_EQ(run.imageName(0), "") << "the first dictionary's page has no file in the one shown";
    run.control<ListBox>("LB")->setListIndex(0);
    run.choose("BVjump.0", 1);
    EXPECT_EQ(run.imageName(0), "second.bmp");
}

TEST(ListMode, TheListLayoutStaysForLaterGroupsWithItsRows) {
    Started run({manyFruits("Many"), fruitGroup("Two", 2)});
    run.pick("Many");
    const int left = run.control<TabPanel>("TB")->x();
    EXPECT_EQ(left, 150);
    run.pick("Two");
    EXPECT_TRUE(run.control<ListBox>("LB")->isVisible());
    EXPECT_EQ(run.control<ListBox>("LB")->rowCount(), 25);
    EXPECT_EQ(run.control<TabPanel>("TB")->x(), left);
    run.search("banana");
    EXPECT_EQ(run.control<ListBox>("LB")->rowCount(), 2) << "a window in list mode searches into its list";
}

TEST(ListMode, RowsOfASecondWindowGoToTheFirstOnesList) {
    Started run({fruitGroup("A few", 2), manyFruits("Many")});
    run.pick("A few");
    run.app().mMakeNewMainWin();
    run.pick("Many", 1);
    EXPECT_EQ(run.control<ListBox>("LB", 1)->rowCount(), 25) << "the layout's rows are the window's own";
    run.search("banana", 1);
    EXPECT_EQ(run.control<ListBox>("LB", 0)->rowCount(), 25);
    EXPECT_EQ(run.window(1).model().hits.pHiteItems().size(), 25U);
}

} // namespace
} // namespace velmarin::test
