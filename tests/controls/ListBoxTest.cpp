#include "controls/ListBox.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

TEST(ListBox, SignalsSelectionsShowsTheRowSetByCodeAndLetsAHandlerDeleteTheRows) {
    ListBox box;
    QSignalSpy changes(&box, &ListBox::Change);
    box.resize(140, 740);
    box.setRows(std::vector<std::string>(50'000, "row"));
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    const auto place = [&](int row) { return box.visualRect(box.model()->index(row, 0)); };
    const auto click = [&](int row) { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, place(row).center()); };
    const struct {
        const char* name;
        std::function<void()> act;
        int row, changes;
    } steps[] = {
        {"click", [&] { click(2); }, 2, 1},
        {"click on the same row", [&] { click(2); }, 2, 0},
        {"code", [&] { box.setListIndex(0); }, 0, 1},
        {"code on the same row", [&] { box.setListIndex(0); }, 0, 1},
        {"Down", [&] { QTest::keyClick(&box, Qt::Key_Down); }, 1, 1},
        {"row added", [&] { box.AddRow("Spanish"); }, 1, 0},
        {"missing row", [&] { box.setListIndex(50'001); }, -1, 1},
        {"far row", [&] { box.setListIndex(49'000); }, 49'000, 1},
        {"rows deleted", [&] { box.DeleteAllRows(); }, -1, 0},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.name);
        changes.clear();
        step.act();
        EXPECT_EQ(box.ListIndex(), step.row);
        EXPECT_EQ(box.SelCount(), step.row >= 0 ? 1 : 0);
        EXPECT_TRUE(step.row < 0 || box.viewport()->rect().contains(place(step.row)));
        EXPECT_EQ(changes.count(), step.changes);
        for (int row = -1; row < 4; ++row)
            EXPECT_EQ(box.Selected(row), row == step.row && row >= 0);
    }
    box.setRows({"a", "b"});
    QObject::connect(&box, &ListBox::Change, &box, [&] { box.DeleteAllRows(); });
    click(1);
    EXPECT_EQ(box.rowCount(), 0);
}

} // namespace
} // namespace velmarin
