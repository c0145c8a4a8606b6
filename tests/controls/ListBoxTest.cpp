#include "controls/ListBox.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

struct ListBoxTest : ::testing::Test {
    ListBox box;
    QSignalSpy changes{&box, &ListBox::Change};

    void SetUp() override {
        box.resize(140, 740);
        for (const char* name : {"Webster", "Devil's", "Elements", "Latin"})
            box.AddRow(name);
        box.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    }
    void click(int row) {
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.visualRect(box.model()->index(row, 0)).center());
    }
};

TEST_F(ListBoxTest, SelectionsAreSignalled) {
    const auto down = [this] { QTest::keyClick(&box, Qt::Key_Down); };
    const struct {
        const char* name;
        std::function<void()> act;
        int row, changes;
    } steps[] = {
        {"click", [&] { click(2); }, 2, 1},
        {"click on the same row", [&] { click(2); }, 2, 0},
        {"Down", down, 3, 1},
        {"code", [&] { box.setListIndex(0); }, 0, 1},
        {"code on the same row", [&] { box.setListIndex(0); }, 0, 1},
        {"Down after code", down, 1, 1},
        {"row added behind it", [&] { box.AddRow("Spanish"); }, 1, 0},
        {"missing row", [&] { box.setListIndex(5); }, -1, 1},
        {"rows deleted", [&] { box.setListIndex(1), box.DeleteAllRows(); }, -1, 1},
    };
    EXPECT_EQ(box.ListIndex(), -1);
    for (const auto& step : steps) {
        SCOPED_TRACE(step.name);
        changes.clear();
        step.act();
        EXPECT_EQ(box.ListIndex(), step.row);
        EXPECT_EQ(box.SelCount(), step.row >= 0 ? 1 : 0);
        EXPECT_EQ(changes.count(), step.changes);
        for (int row = -1; row <= box.rowCount(); ++row)
            EXPECT_EQ(box.Selected(row), row == step.row && row >= 0);
    }
}

TEST_F(ListBoxTest, RowSetByCodeIsInViewAndAHandlerMayDeleteTheRows) {
    std::vector<std::string> rows;
    for (int i = 0; i < 50'000; ++i)
        rows.push_back("row " + std::to_string(i));
    box.setRows(std::move(rows));
    box.setListIndex(49'000);
    EXPECT_TRUE(box.viewport()->rect().contains(box.visualRect(box.model()->index(49'000, 0))));
    EXPECT_EQ(box.List(49'000), "row 49000");
    QObject::connect(&box, &ListBox::Change, &box, [this] { box.DeleteAllRows(); });
    click(48'999);
    EXPECT_EQ(box.rowCount(), 0) << "a handler may delete the rows";
}

} // namespace
} // namespace velmarin
