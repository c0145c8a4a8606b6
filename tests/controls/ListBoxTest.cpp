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

struct SelectCase {
    const char* name;
    std::function<void(ListBoxTest&)> act;
    int row;
    int changes;
};

class Selections : public ListBoxTest, public ::testing::WithParamInterface<SelectCase> {};

TEST_P(Selections, AreTold) {
    GetParam().act(*this);
    EXPECT_EQ(box.ListIndex(), GetParam().row);
    EXPECT_EQ(box.SelCount(), GetParam().row >= 0 ? 1 : 0);
    EXPECT_EQ(changes.count(), GetParam().changes);
    for (int row = -1; row <= box.rowCount(); ++row)
        EXPECT_EQ(box.Selected(row), row == GetParam().row && row >= 0);
}

INSTANTIATE_TEST_SUITE_P(ListBox, Selections,
                         ::testing::Values(SelectCase{"NothingAtFirst", [](auto&) {}, -1, 0},
                                           SelectCase{"Click", [](auto& t) { t.click(2); }, 2, 1},
                                           SelectCase{"ClickOnTheSameRowAgain",
                                                      [](auto& t) {
                                                          t.click(2);
                                                          t.click(2);
                                                      },
                                                      2, 1},
                                           SelectCase{"DownKey",
                                                      [](auto& t) {
                                                          t.click(1);
                                                          QTest::keyClick(&t.box, Qt::Key_Down);
                                                      },
                                                      2, 2},
                                           SelectCase{"Code", [](auto& t) { t.box.setListIndex(3); }, 3, 1},
                                           SelectCase{"CodeOnTheSameRowAgain",
                                                      [](auto& t) {
                                                          t.box.setListIndex(0);
                                                          t.box.setListIndex(0);
                                                      },
                                                      0, 2},
                                           SelectCase{"CodeTakesItAway",
                                                      [](auto& t) {
                                                          t.box.setListIndex(1);
                                                          t.box.setListIndex(-1);
                                                      },
                                                      -1, 2},
                                           SelectCase{"MissingRow", [](auto& t) { t.box.setListIndex(4); }, -1, 1},
                                           SelectCase{"RowsDeleted",
                                                      [](auto& t) {
                                                          t.box.setListIndex(1);
                                                          t.box.DeleteAllRows();
                                                      },
                                                      -1, 1},
                                           SelectCase{"RowAddedBehindIt",
                                                      [](auto& t) {
                                                          t.box.setListIndex(1);
                                                          t.box.AddRow("Spanish");
                                                      },
                                                      1, 1},
                                           SelectCase{"ArrowKeyAfterCode",
                                                      [](auto& t) {
                                                          t.box.setListIndex(0);
                                                          QTest::keyClick(&t.box, Qt::Key_Down);
                                                      },
                                                      1, 2}),
                         [](const auto& info) { return info.param.name; });

TEST_F(ListBoxTest, RowSetByCodeIsInView) {
    std::vector<std::string> rows;
    for (int i = 0; i < 50'000; ++i)
        rows.push_back("row " + std::to_string(i));
    box.setRows(std::move(rows));
    box.setListIndex(49'000);
    EXPECT_TRUE(box.viewport()->rect().contains(box.visualRect(box.model()->index(49'000, 0))));
    EXPECT_EQ(box.List(49'000), "row 49000");
}

TEST_F(ListBoxTest, HandlerMayDeleteTheRows) {
    QObject::connect(&box, &ListBox::Change, &box, [this] { box.DeleteAllRows(); });
    click(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(box.rowCount(), 0);
}

} // namespace
} // namespace velmarin
