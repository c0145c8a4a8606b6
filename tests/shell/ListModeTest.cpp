#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/TabPanel.h"
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

TEST(ListMode, AClickOnARowShowsItsPageAndLeavesTheKeyboardToTheField) {
    Started run({manyFruits("Many")});
    EXPECT_EQ(run.control<BevelButton>("BVimage.0")->wholeText(), "Image size") << "its fit has no row";
    EXPECT_EQ(run.control<TabPanel>("TB")->x(), 150);
    run.search("banana");
    auto* rows = run.control<ListBox>("LB");
    EXPECT_EQ(rows->ListIndex(), 0);
    QApplication::setActiveWindow(&run.window());
    run.control<QLineEdit>("SearchEF")->setFocus();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualRect(rows->model()->index(3, 0)).center());
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "D13");
    EXPECT_TRUE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
    EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), 1);
    EXPECT_TRUE(run.control<QLineEdit>("SearchEF")->hasFocus());
    run.click("BVnext.0");
    EXPECT_EQ(run.imageName(0), "3.bmp");
}

TEST(ListMode, ARowWithoutAPageSaysSoReadably) {
    Started run({manyFruits("Many")});
    run.search("aaa");
    auto* info = run.control<QLabel>("InfoST");
    EXPECT_EQ(info->text(), "We cant finde the picture. This dictionary has some probleme: D10");
    EXPECT_GE(info->height(), info->fontMetrics().height());
    EXPECT_FALSE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
    run.search("banana");
    EXPECT_EQ(info->text(), "");
    std::filesystem::remove(run.groupFolder("Many") / "D12" / "mImg" / "2.bmp");
    run.control<ListBox>("LB")->setListIndex(2);
    EXPECT_EQ(run.control<SmartCanvas>("MainCanvas.0")->accessibleDescription(), "D12, 2.bmp: there is no such file");
    EXPECT_EQ(info->toolTip(), info->text() + "\n2.bmp: there is no such file");
}

TEST(ListMode, RowsOfASecondWindowGoToTheFirstOnesList) {
    Started run({fruitGroup("A few", 2), manyFruits("Many")});
    run.pick("A few");
    run.app().mMakeNewMainWin();
    run.pick("Many", 1);
    run.search("banana", 1);
    EXPECT_EQ(run.control<ListBox>("LB", 0)->rowCount(), 25);
}

} // namespace
} // namespace velmarin::test
