#include "DialogTest.h"
#include "maintenance/OrderList.h"

#include <QLineEdit>
#include <QPushButton>

namespace velmarin::test {

namespace {

using Rows = std::vector<std::string>;

class EditDicDialog : public DialogTest {
  protected:
    EditDicDialog() {
        windows_.names = {"a", "b", "c", "d"};
        windows_.groupName = "Old ones";
        open();
    }

    static constexpr const char* kDialog = "EditDicDlg";
    void open() { maintenance_.changeDictionariesOrder(1, FolderItem("/dictionaries/group")); }
    OrderList* list() const { return control<OrderList>(kDialog, "LB"); }
    QPushButton* button(const char* name) const { return control<QPushButton>(kDialog, name); }
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

TEST_F(EditDicDialog, RowsFollowTheDragAndTheSelectionFollowsTheRow) {
    const struct {
        const char* why;
        int from, to, offset; ///< rows, and pixels from the middle of `to`
        Rows expected;
    } cases[] = {{"down past a row's middle", 0, 2, 3, {"b", "c", "a", "d"}},
                 {"down to a row's upper half", 0, 2, -3, {"b", "a", "c", "d"}},
                 {"up to the top", 3, 0, -5, {"d", "a", "b", "c"}},
                 {"below the last row", 1, 3, 60, {"a", "c", "d", "b"}},
                 {"back to where it was", 2, 2, 12, {"a", "b", "c", "d"}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.why);
        shown(kDialog)->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        open();
        const QPoint to = middleOf(each.to) + QPoint(0, each.offset);
        const std::string dragged = list()->rows()[static_cast<std::size_t>(each.from)];
        dragTo(each.from, to);
        drop(to);
        EXPECT_EQ(list()->rows(), each.expected);
        EXPECT_EQ(list()->currentIndex().data().toString().toStdString(), dragged);
    }
}

TEST_F(EditDicDialog, EscapeEndsADragAndAPressAloneMovesNothing) {
    dragTo(0, middleOf(3));
    QTest::keyClick(list(), Qt::Key_Escape);
    drop(middleOf(3));
    EXPECT_EQ(list()->rows(), windows_.names);
    ASSERT_NE(shown(kDialog), nullptr) << "Escape meant the drag alone";
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(list()->currentIndex().row(), 2);
    EXPECT_EQ(list()->rows(), windows_.names);
}

TEST_F(EditDicDialog, KeysMoveTheSelectedRowUpToTheEnds) {
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(list()->rows(), windows_.names) << "no row is selected";
    list()->setCurrentIndex(list()->model()->index(1, 0));
    QTest::keyClick(list(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(list()->rows(), (Rows{"a", "c", "b", "d"}));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(list(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(list()->rows(), (Rows{"a", "c", "d", "b"}));
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(list(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(list()->rows(), (Rows{"b", "a", "c", "d"}));
    EXPECT_EQ(list()->currentIndex().row(), 0);
}

TEST_F(EditDicDialog, SaveWritesTheLinesAndReadsTheGroupAgain) {
    list()->setCurrentIndex(list()->model()->index(3, 0));
    QTest::keyClick(list(), Qt::Key_Up, Qt::AltModifier);
    auto* EF = control<QLineEdit>(kDialog, "EF");
    EXPECT_EQ(EF->text(), "Old ones");
    EF->selectAll();
    QTest::keyClicks(EF, "Older ones");
    windows_.onRead = [&] { EXPECT_TRUE(busy_.busy()) << "a pick now would be for another group"; };
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Rows{"Older ones", "a", "b", "d", "c"}));
    EXPECT_EQ(windows_.calls,
              (Rows{"pNewDicPref", "close page image window", "write 1", "read 1 /dictionaries/group", "ready 1"}));
    EXPECT_EQ(shown(kDialog), nullptr);
    EXPECT_TRUE(host_.messages.empty());
}

TEST_F(EditDicDialog, NothingIsSavedByAnyOtherWayOut) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Cancel", [&] { click(button("CancelBT")); }},
        {"Escape", [&] { QTest::keyClick(list(), Qt::Key_Escape); }},
        {"the close button", [&] { shown(kDialog)->close(); }}};
    for (const auto& [why, leave] : ways) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (shown(kDialog) == nullptr)
            open();
        list()->setCurrentIndex(list()->model()->index(0, 0));
        QTest::keyClick(list(), Qt::Key_Down, Qt::AltModifier);
        leave();
        EXPECT_EQ(shown(kDialog), nullptr) << why;
        EXPECT_TRUE(windows_.calls.empty()) << why;
    }
}

TEST_F(EditDicDialog, SavesToItsGroupWhenTheWindowHasNone) {
    list()->setCurrentIndex(list()->model()->index(0, 0));
    QTest::keyClick(list(), Qt::Key_Down, Qt::AltModifier);
    windows_.anyGroup = false;
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Rows{"Old ones", "b", "a", "c", "d"}));
    EXPECT_EQ(windows_.calls, (Rows{"pNewDicPref", "close page image window", "write and pick 1 /dictionaries/group"}));
    EXPECT_EQ(shown(kDialog), nullptr);
}

TEST_F(EditDicDialog, OpenedAgainWhileItIsUpItShowsAllRowsTwice) {
    windows_.groupName = "";
    open();
    EXPECT_EQ(list()->rows(), (Rows{"a", "b", "c", "d", "a", "b", "c", "d"}));
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Rows{"", "a", "b", "c", "d", "a", "b", "c", "d"}));
}

TEST_F(EditDicDialog, SavingWaitsUntilNothingElseIsUnderWay) {
    {
        const Busy guard(busy_);
        EXPECT_FALSE(button("SaveBT")->isEnabled());
        click(button("SaveBT"));
    }
    EXPECT_TRUE(windows_.calls.empty());
    EXPECT_TRUE(button("SaveBT")->isEnabled());
}

TEST_F(EditDicDialog, ItCannotBeClosedWhileItSaves) {
    host_.onYield = [&] {
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_NE(shown(kDialog), nullptr);
    };
    click(button("SaveBT"));
    EXPECT_EQ(windows_.calls.size(), 5U);
}

} // namespace
} // namespace velmarin::test
