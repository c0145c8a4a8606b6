#include "MaintenanceFixture.h"
#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"

#include <QPushButton>
#include <QTableWidget>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

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
    EXPECT_TRUE(shown(kDialog)->isModal());
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
    EXPECT_EQ(rows(), (Texts{"-Latin", "-No mark", "-Spanish", "-Webster"}));
    click(OKBT());
    EXPECT_EQ(host_.messages, Texts{}) << "nothing is checked";
    checkByMouse(0);
    click(OKBT());
    EXPECT_EQ(host_.messages, Texts{"Select a folder to put in the exported dictionaries."});
    ASSERT_NE(shown(kDialog), nullptr) << "no folder was chosen";
    EXPECT_TRUE(OKBT()->isEnabled());
    EXPECT_EQ(rows()[0], "+Latin");
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
    EXPECT_EQ(host_.questions, (Texts{"There are already a dictionary 'Latin'in the destination folder. Do you want to "
                                      "delete it to continue this proces  ?",
                                      "There are already a dictionary 'Webster'in the destination folder. Do you want "
                                      "to delete it to continue this proces  ?"}));
    EXPECT_EQ(folder_.read("Out/Latin/mImg/FW"), "DF/A/Webster");
    EXPECT_EQ(folder_.read("Out/Webster/FW"), "kept");
    EXPECT_EQ(folder_.read("Out/Spanish/FW"), "DF/B/Spanish");
    EXPECT_FALSE(fs::exists(folder_.at("Out/No mark")));
    EXPECT_EQ(host_.launched, std::vector<fs::path>{folder_.at("Out")});
    EXPECT_EQ(host_.messages.size(), 1U) << "only the question for the folder";
}

TEST_F(ExpDicDlg, FailuresAreReportedAtTheEnd) {
    folder_.fifo("DF/A/Latin/pipe");
    folder_.link("DF/A/Webster/gone", "nowhere");
    host_.launches = false;
    exportAll();
    ASSERT_EQ(host_.messages.size(), 3U);
    for (const char* item : {"DF/A/Latin/pipe", "DF/A/Webster/gone"})
        EXPECT_NE(host_.messages[1].find(folder_.at(item).native()), std::string::npos);
    EXPECT_EQ(host_.messages[2], "The folder could not be opened: " + folder_.at("Out").native());
    EXPECT_TRUE(fs::exists(folder_.at("Out/Spanish/FW")));
    EXPECT_EQ(shown(kDialog), nullptr);
}

} // namespace
} // namespace velmarin::test
