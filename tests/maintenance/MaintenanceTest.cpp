#include "MaintenanceFixture.h"
#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"
#include "files/FolderLock.h"
#include "maintenance/DictionaryOrder.h"
#include "maintenance/OrderList.h"
#include "platform/QtText.h"
#include "support/Tree.h"

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>

#include <numeric>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class UpdateDictionary : public MaintenanceFixture {
  protected:
    UpdateDictionary() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
        host_.folders = {folder_.at("new/Webster")};
    }
};

TEST_F(UpdateDictionary, RefusesWhatIsNotADictionary) {
    fs::create_directories(folder_.at("empty"));
    folder_.link("link", "new/Webster");
    for (const char* chosen : {"empty", "link", "new/Webster/ind", "missing"}) {
        host_.messages.clear();
        host_.folders = {folder_.at(chosen)};
        maintenance_.mUpDateDictionary();
        EXPECT_EQ(host_.messages, Texts{"This is not a Dictionary !"}) << chosen;
    }
    EXPECT_EQ(windows_.calls, Texts{});
}

TEST_F(UpdateDictionary, ShowsWaitDlgWhileItWorks) {
    for (const char* index : {"DF/A/Webster/ind", "DF/B/WEBSTER/ind"})
        folder_.write(index, "old index");
    Work quiet;
    auto otherRun = std::make_optional<FolderLock>(folder_.at("DF"), FolderLock::Kind::Alone, quiet);
    Texts labels;
    host_.onYield = [&] {
        QWidget* dialog = shown("WaitDlg");
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(busy_.busy());
        const std::string label = fromQ(dialog->findChild<QLabel*>("Label1")->text());
        if (labels.empty()) {
            EXPECT_FALSE(dialog->isModal());
            auto* bar = dialog->findChild<QProgressBar*>("ProgressBar1");
            const QImage first = bar->grab().toImage();
            EXPECT_TRUE(QTest::qWaitFor([&] { return bar->grab().toImage() != first; })) << "it moves";
            QTest::keyClick(dialog, Qt::Key_Escape);
            dialog->close();
            EXPECT_TRUE(dialog->isVisible());
        }
        if (labels.empty() || labels.back() != label)
            labels.push_back(label);
        if (labels.size() > 1)
            otherRun.reset();
    };
    maintenance_.mUpDateDictionary();
    EXPECT_EQ(labels, (Texts{"Please wait a minute !", "Waiting for another run on \"DF\"", "Please wait a minute !"}));
    EXPECT_EQ(shown("WaitDlg"), nullptr);
    EXPECT_FALSE(busy_.busy());
    EXPECT_EQ(host_.messages, Texts{});
    EXPECT_EQ(windows_.calls, Texts{});
    EXPECT_EQ(folder_.read("DF/B/WEBSTER/ind"), "new index");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-1/ind"), "old index");
}

TEST_F(UpdateDictionary, InstallsANewOneInTheChosenGroupAndResetsAllWindows) {
    maintenance_.mUpDateDictionary();
    EXPECT_TRUE(fs::is_empty(folder_.at("DF"))) << "no group was chosen";
    EXPECT_EQ(windows_.calls, Texts{});
    folder_.link("new/Webster/txt", "nowhere");
    host_.folders = {folder_.at("new/Webster"), folder_.at("DF/A"), folder_.at("new/Webster"), folder_.at("DF/A")};
    maintenance_.mUpDateDictionary();
    ASSERT_EQ(host_.messages.size(), 3U);
    EXPECT_TRUE(host_.messages[1].starts_with("This dictionary is a new comer.\n"));
    expectNamed(host_.messages[2], {"new/Webster/txt"});
    EXPECT_TRUE(fs::is_empty(folder_.at("DF"))) << "no new group is left";
    windows_.calls.clear();
    fs::remove(folder_.at("new/Webster/txt"));
    maintenance_.mUpDateDictionary();
    EXPECT_EQ(host_.openedAt.back(), folder_.at("DF"));
    EXPECT_EQ(treeOf(folder_.at("DF/A/Webster")), treeOf(folder_.at("new/Webster")));
    EXPECT_EQ(windows_.calls, (Texts{"reset 0", "reset 1"}));
    EXPECT_FALSE(fs::exists(folder_.at("Desktop")));
}

TEST_F(UpdateDictionary, FailuresAreReportedOnceAtTheEnd) {
    folder_.write("DF/A/Webster/ind", "old index");
    for (const char* name : {"new/Webster/mSnd", "new/Webster/mMov"})
        folder_.fifo(name);
    maintenance_.mUpDateDictionary();
    ASSERT_EQ(host_.messages.size(), 1U);
    expectNamed(host_.messages[0], {"new/Webster/mSnd", "new/Webster/mMov"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

class ExpDicDlg : public MaintenanceFixture {
  protected:
    ExpDicDlg() {
        for (const char* name : {"DF/A/Latin", "DF/A/Webster", "DF/B/Spanish"})
            folder_.write(fs::path(name) / "FW", name);
        folder_.write("DF/B/No mark/ind", "");
        folder_.link("DF/B/Latin", folder_.at("DF/A/Latin"));
        fs::create_directory(folder_.at("Out"));
    }

    static constexpr const char* kDialog = "ExpDicDlg";
    QTableWidget* list() const { return control<QTableWidget>(kDialog, "MainLB"); }
    QPushButton* OKBT() const { return control<QPushButton>(kDialog, "OKBT"); }
    /// The rows, with "+" for a check mark and "-" for none.
    Texts rows() const {
        Texts all;
        for (int row = 0; row < list()->rowCount(); ++row)
            all.push_back((list()->item(row, 0)->checkState() == Qt::Checked ? "+" : "-") +
                          list()->item(row, 1)->text().toStdString());
        return all;
    }
    void checkByMouse(int row) const {
        const QRect cell = list()->visualItemRect(list()->item(row, 0));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 10, cell.center().y()));
    }
    /// Picks a row in the menu of `CheckBV` with the keyboard.
    void pickCheck(int row) const {
        QTest::keyClick(control<BevelButton>(kDialog, "CheckBV"), Qt::Key_Space);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        auto* menu = popup->findChild<QAbstractItemView*>();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, row == 0 ? Qt::Key_Home : Qt::Key_End);
        QTest::keyClick(menu, Qt::Key_Return);
    }
    void exportAll() {
        host_.folders = {folder_.at("Out")};
        maintenance_.mExportDic();
        pickCheck(0);
        click(OKBT());
    }
};

TEST_F(ExpDicDlg, RowsAreCheckedByMouseKeyAndMenu) {
    maintenance_.mExportDic();
    ASSERT_NE(shown(kDialog), nullptr);
    maintenance_.mExportDic();
    EXPECT_EQ(rows(), (Texts{"-Latin", "-No mark", "-Spanish", "-Webster"})) << "there is only one dialog";
    checkByMouse(1);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(rows(), (Texts{"-Latin", "+No mark", "+Spanish", "-Webster"}));
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(rows()[2], "-Spanish");
    pickCheck(0);
    EXPECT_EQ(rows(), (Texts{"+Latin", "+No mark", "+Spanish", "+Webster"}));
    pickCheck(1);
    click(OKBT());
    EXPECT_EQ(host_.messages, Texts{}) << "nothing is checked";
    checkByMouse(0);
    click(OKBT());
    EXPECT_EQ(host_.messages, Texts{"Select a folder to put in the exported dictionaries."});
    EXPECT_EQ(rows(), (Texts{"+Latin", "-No mark", "-Spanish", "-Webster"})) << "no folder was chosen";
    EXPECT_TRUE(OKBT()->isEnabled());
    click(control<QPushButton>(kDialog, "CancelBT"));
    EXPECT_EQ(shown(kDialog), nullptr);
}

TEST_F(ExpDicDlg, ExportsWhatIsCheckedAndOpensTheFolder) {
    folder_.link("DF/A/Latin/mImg", folder_.at("DF/A/Webster"));
    folder_.write("Out/Latin/FW", "replaced");
    folder_.write("Out/Webster/FW", "kept");
    host_.answers = {Host::Answer::Yes, Host::Answer::No};
    std::vector<int> values;
    host_.onYield = [&] {
        if (!OKBT()->isVisible() || rows().size() < 4 || rows()[3] == "-Webster")
            return; // the dialog is being filled
        const int value = control<ProgressBar>(kDialog, "PB")->Value();
        if (values.empty() || values.back() != value)
            values.push_back(value);
        EXPECT_TRUE(busy_.busy());
        EXPECT_FALSE(control<QPushButton>(kDialog, "CancelBT")->isEnabled());
        QTest::keyClick(shown(kDialog), Qt::Key_Escape);
        ASSERT_NE(shown(kDialog), nullptr);
    };
    exportAll();
    EXPECT_EQ(shown(kDialog), nullptr);
    EXPECT_EQ(values, (std::vector<int>{0, 1, 2, 3}));
    ASSERT_EQ(host_.questions.size(), 2U);
    EXPECT_EQ(host_.questions[0], "There are already a dictionary 'Latin'in the destination folder. Do you want to "
                                  "delete it to continue this proces  ?");
    EXPECT_EQ(filesOf(folder_.at("Out")), "Latin/FW=DF/A/Latin Latin/mImg/FW=DF/A/Webster Spanish/FW=DF/B/Spanish "
                                          "Webster/FW=kept");
    EXPECT_EQ(host_.launched, std::vector<fs::path>{folder_.at("Out")});
    EXPECT_EQ(host_.messages.size(), 1U) << "only the question for the folder";
}

TEST_F(ExpDicDlg, FailuresAreReportedAtTheEnd) {
    folder_.fifo("DF/A/Latin/pipe");
    folder_.link("DF/A/Webster/gone", "nowhere");
    host_.launches = false;
    exportAll();
    ASSERT_EQ(host_.messages.size(), 3U);
    expectNamed(host_.messages[1], {"DF/A/Latin/pipe", "DF/A/Webster/gone"});
    EXPECT_EQ(host_.messages[2], "The folder could not be opened: " + folder_.at("Out").native());
    EXPECT_TRUE(fs::exists(folder_.at("Out/Spanish/FW")));
    EXPECT_EQ(shown(kDialog), nullptr);
}

std::string joined(const Texts& texts) {
    return std::accumulate(texts.begin(), texts.end(), std::string());
}

TEST(DictionaryOrder, MovesARowBeforeAnother) {
    const std::tuple<std::size_t, std::size_t, std::string> cases[] = {{0, 2, "bacd"}, {0, 4, "bcda"}, {3, 0, "dabc"},
                                                                       {2, 1, "acbd"}, {1, 1, "abcd"}, {1, 2, "abcd"},
                                                                       {4, 0, "abcd"}, {0, 5, "abcd"}};
    for (const auto& [from, before, expected] : cases) {
        DictionaryOrder order{"title", {"a", "b", "c", "d"}};
        EXPECT_EQ(order.move(from, before), expected != "abcd") << from << " before " << before;
        EXPECT_EQ(joined(order.rows), expected);
    }
}

class EditDicDlg : public MaintenanceFixture {
  protected:
    EditDicDlg() {
        windows_.names = {"a", "b", "c", "d"};
        windows_.groupName = "Old ones";
        open();
    }

    static constexpr const char* kDialog = "EditDicDlg";
    void open() { maintenance_.changeDictionariesOrder(1, FolderItem("/dictionaries/group")); }
    std::string order() const { return joined(list()->rows()); }
    OrderList* list() const { return control<OrderList>(kDialog, "LB"); }
    QPushButton* button(const char* name) const { return control<QPushButton>(kDialog, name); }
    void select(int row) const { list()->setCurrentIndex(list()->model()->index(row, 0)); }
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
    // Rows, and pixels from the middle of the second one.
    const std::tuple<int, int, int, const char*> cases[] = {
        {0, 2, 3, "bcad"}, {0, 2, -3, "cbad"}, {3, 0, -5, "dcba"}, {1, 3, 60, "dbac"}, {2, 2, 12, "dbac"}};
    for (const auto& [from, row, offset, expected] : cases) {
        const QPoint to = middleOf(row) + QPoint(0, offset);
        const char dragged = order()[static_cast<std::size_t>(from)];
        dragTo(from, to);
        drop(to);
        EXPECT_EQ(order(), expected);
        EXPECT_EQ(list()->currentIndex().data().toString(), QChar(dragged)) << expected;
    }
}

TEST_F(EditDicDlg, EscapeCancelsADragAndAClickMovesNothing) {
    dragTo(0, middleOf(3));
    QTest::keyClick(list(), Qt::Key_Escape);
    drop(middleOf(3));
    ASSERT_NE(shown(kDialog), nullptr);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(list()->currentIndex().row(), 2);
    EXPECT_EQ(order(), "abcd");
}

TEST_F(EditDicDlg, KeysMoveTheSelectedRow) {
    move(Qt::Key_Down);
    EXPECT_EQ(order(), "abcd") << "no row is selected";
    select(1);
    const std::tuple<Qt::Key, int, const char*> steps[] = {
        {Qt::Key_Down, 1, "acbd"}, {Qt::Key_Down, 3, "acdb"}, {Qt::Key_Up, 5, "bacd"}};
    for (const auto& [key, times, expected] : steps) {
        move(key, times);
        EXPECT_EQ(order(), expected);
    }
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
        EXPECT_EQ(windows_.calls, Texts{}) << "something else is being done";
    }
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Texts{"Older ones", "a", "b", "d", "c"}));
    EXPECT_EQ(windows_.calls,
              (Texts{"close page image window", "write 5 lines 1", "read 1/dictionaries/group", "ready 1"}));
    EXPECT_EQ(shown(kDialog), nullptr);
}

TEST_F(EditDicDlg, SaveWritesToItsGroupIfTheWindowHasNone) {
    windows_.groupName = "\xFF";
    open();
    windows_.anyGroup = false;
    click(button("SaveBT"));
    EXPECT_EQ(windows_.newDicPref, (Texts{"\xFF", "a", "b", "c", "d", "a", "b", "c", "d"})) << "it was already open";
    EXPECT_EQ(windows_.calls, (Texts{"close page image window", "write and pick 9 lines 1/dictionaries/group"}));
}

TEST_F(EditDicDlg, OtherWaysOutSaveNothing) {
    const std::function<void()> ways[] = {[&] { click(button("CancelBT")); },
                                          [&] { QTest::keyClick(list(), Qt::Key_Escape); },
                                          [&] { shown(kDialog)->close(); }};
    for (const auto& leave : ways) {
        open();
        select(0);
        move(Qt::Key_Down);
        leave();
        EXPECT_EQ(shown(kDialog), nullptr);
        EXPECT_EQ(windows_.calls, Texts{});
    }
}

TEST(FailureMessage, ListsItemsWithReasonsUpToALimit) {
    MaintenanceResult result;
    EXPECT_EQ(failureMessage(result), "");
    const auto fail = [&] { result.fail(FolderItem("/d/\xFF" + std::to_string(result.failures.size())), "broken"); };
    fail();
    EXPECT_EQ(failureMessage(result), "This item could not be handled:\n\n/d/\xEF\xBF\xBD"
                                      "0\n    broken");
    while (result.failures.size() < 200)
        fail();
    EXPECT_TRUE(failureMessage(result).starts_with("These items could not be handled:\n\n/d/"));
    EXPECT_TRUE(failureMessage(result).ends_with("199\n    broken"));
    fail();
    EXPECT_TRUE(failureMessage(result).ends_with("199\n    broken\n\nand 1 more."));
}

} // namespace
} // namespace velmarin::test
