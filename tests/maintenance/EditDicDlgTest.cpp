#include "MaintenanceFixture.h"
#include "maintenance/OrderList.h"

#include <QLineEdit>
#include <QPushButton>

namespace velmarin::test {

namespace {

using Rows = std::vector<std::string>;

class EditDicDlg : public MaintenanceFixture {
  protected:
    EditDicDlg() {
        windows_.names = {"a", "b", "c", "d"};
        windows_.groupName = "Old ones";
        open();
    }

    static constexpr const char* kDialog = "EditDicDlg";
    void open() { maintenance_.changeDictionariesOrder(1, FolderItem("/dictionaries/group")); }
    OrderList* list() const { return control<OrderList>(kDialog, "LB"); }
    QPushButton* button(const char* name) const { return control<QPushButton>(kDialog, name); }
    void select(int row) const { list()->setCurrentIndex(list()->model()->index(row, 0)); }
    /// Presses Alt with the key.
    void move(Qt::Key key, int times = 1) const {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(list(), key, Qt::AltModifier);
    }
    QPoint middleOf(int row) const { return list()->visualRect(list()->model()->index(row, 0)).center(); }
    /// Drags from the middle of a row to a point and keeps the button down.
    void dragTo(int from, const QPoint& to) const {
        QWidget* viewport = list()->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, middleOf(from));
        QTest::mouseMove(viewport, (middleOf(from) + to) / 2);
        QTest::mouseMove(viewport, to);
    }
    void drop(const QPoint& at) const { QTest::mouseRelease(list()->viewport(), Qt::LeftButton, {}, at); }
};

TEST_F(EditDicDlg, DraggedRowStaysSelected) {
    const struct {
        int from, to, offset; ///< rows, and pixels from the middle of `to`
        Rows expected;
    } cases[] = {{0, 2, 3, {"b", "c", "a", "d"}},
                 {0, 2, -3, {"c", "b", "a", "d"}},
                 {3, 0, -5, {"d", "c", "b", "a"}},
                 {1, 3, 60, {"d", "b", "a", "c"}},
                 {2, 2, 12, {"d", "b", "a", "c"}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.expected));
        const QPoint to = middleOf(each.to) + QPoint(0, each.offset);
        const std::string dragged = list()->rows()[static_cast<std::size_t>(each.from)];
        dragTo(each.from, to);
        drop(to);
        EXPECT_EQ(list()->rows(), each.expected);
        EXPECT_EQ(list()->currentIndex().data().toString().toStdString(), dragged);
    }
}

TEST_F(EditDicDlg, EscapeCancelsADragAndAClickMovesNothing) {
    dragTo(0, middleOf(3));
    QTest::keyClick(list(), Qt::Key_Escape);
    drop(middleOf(3));
    EXPECT_EQ(list()->rows(), windows_.names);
    ASSERT_NE(shown(kDialog), nullptr);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(list()->currentIndex().row(), 2);
    EXPECT_EQ(list()->rows(), windows_.names);
}

TEST_F(EditDicDlg, KeysMoveTheSelectedRow) {
    move(Qt::Key_Down);
    EXPECT_EQ(list()->rows(), windows_.names) << "no row is selected";
    select(1);
    move(Qt::Key_Down);
    EXPECT_EQ(list()->rows(), (Rows{"a", "c", "b", "d"}));
    move(Qt::Key_Down, 3);
    EXPECT_EQ(list()->rows(), (Rows{"a", "c", "d", "b"}));
    move(Qt::Key_Up, 5);
    EXPECT_EQ(list()->rows(), (Rows{"b", "a", "c", "d"}));
    EXPECT_EQ(list()->currentIndex().row(), 0);
}

TEST_F(EditDicDlg, SaveWritesTheLinesAndReadsTheGroup) {
    select(3);
    move(Qt::Key_Up);
    auto* EF = control<QLineEdit>(kDialog, "EF");
    EXPECT_EQ(EF->text(), "Old ones");
    EF->selectAll();
    QTest::keyClicks(EF, "Older ones");
    windows_.onRead = [&] { EXPECT_TRUE(busy_.busy()) << "the user could pick another group now"; };
    host_.onYield = [&] {
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_NE(shown(kDialog), nullptr) << "it cannot be closed while it saves";
    };
    {
        const Busy guard(busy_);
        click(button("SaveBT"));
        EXPECT_EQ(windows_.calls, Rows{}) << "something else is being done";
    }
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Rows{"Older ones", "a", "b", "d", "c"}));
    EXPECT_EQ(windows_.calls,
              (Rows{"pNewDicPref", "close page image window", "write 1", "read 1 /dictionaries/group", "ready 1"}));
    EXPECT_EQ(shown(kDialog), nullptr);
    EXPECT_EQ(host_.messages, Rows{});
}

TEST_F(EditDicDlg, SaveWritesToItsGroupIfTheWindowHasNone) {
    windows_.groupName = "\xFF";
    open();
    EXPECT_EQ(list()->rows(), (Rows{"a", "b", "c", "d", "a", "b", "c", "d"})) << "it was already open";
    windows_.anyGroup = false;
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Rows{"\xFF", "a", "b", "c", "d", "a", "b", "c", "d"}));
    EXPECT_EQ(windows_.calls, (Rows{"pNewDicPref", "close page image window", "write and pick 1 /dictionaries/group"}));
    EXPECT_EQ(shown(kDialog), nullptr);
}

TEST_F(EditDicDlg, OtherWaysOutSaveNothing) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Cancel", [&] { click(button("CancelBT")); }},
        {"Escape", [&] { QTest::keyClick(list(), Qt::Key_Escape); }},
        {"close button", [&] { shown(kDialog)->close(); }}};
    for (const auto& [name, leave] : ways) {
        if (shown(kDialog) == nullptr)
            open();
        select(0);
        move(Qt::Key_Down);
        leave();
        EXPECT_EQ(shown(kDialog), nullptr) << name;
        EXPECT_EQ(windows_.calls, Rows{}) << name;
    }
}

} // namespace
} // namespace velmarin::test
