#include "DialogTest.h"
#include "Trees.h"
#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"

#include <QPushButton>
#include <QTableWidget>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class ExpDicDialog : public DialogTest {
  protected:
    ExpDicDialog() {
        for (const char* name : {"DF/A/Latin", "DF/A/Webster", "DF/B/Spanish"})
            folder_.write(fs::path(name) / "FW", name);
        folder_.write("DF/B/No mark/ind", "");
        makeLink(at("DF/B/Latin"), at("DF/A/Latin"));
        fs::create_directory(at("Out"));
    }

    static constexpr const char* kDialog = "ExpDicDlg";
    QTableWidget* list() const { return control<QTableWidget>(kDialog, "MainLB"); }
    QPushButton* OKBT() const { return control<QPushButton>(kDialog, "OKBT"); }
    std::vector<std::string> rows() const {
        std::vector<std::string> all;
        for (int row = 0; row < list()->rowCount(); ++row)
            all.push_back((list()->item(row, 0)->checkState() == Qt::Checked ? "+" : "-") +
                          list()->item(row, 1)->text().toStdString());
        return all;
    }
    void checkByMouse(int row) const {
        const QRect cell = list()->visualItemRect(list()->item(row, 0));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 10, cell.center().y()));
    }
    /// Opens the menu of `CheckBV` and picks a row, as one does without a mouse.
    void pickCheck(int row) const {
        QTest::keyClick(control<BevelButton>(kDialog, "CheckBV"), Qt::Key_Space);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        auto* menu = popup->findChild<QAbstractItemView*>();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_Home);
        for (int i = 0; i < row; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    }
};

TEST_F(ExpDicDialog, ListsEveryDictionaryOnceAndUnchecked) {
    maintenance_.mExportDic();
    ASSERT_NE(shown(kDialog), nullptr);
    EXPECT_EQ(rows(), (std::vector<std::string>{"-Latin", "-No mark", "-Spanish", "-Webster"}));
    EXPECT_TRUE(shown(kDialog)->isModal());
    maintenance_.mExportDic();
    EXPECT_EQ(rows().size(), 4U) << "there is one dialog only";
    click(control<QPushButton>(kDialog, "CancelBT"));
    EXPECT_EQ(shown(kDialog), nullptr);
    EXPECT_TRUE(host_.messages.empty());
}

TEST_F(ExpDicDialog, RowsAreCheckedByMouseKeyAndMenu) {
    maintenance_.mExportDic();
    checkByMouse(1);
    EXPECT_EQ(rows(), (std::vector<std::string>{"-Latin", "+No mark", "-Spanish", "-Webster"}));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(rows(), (std::vector<std::string>{"-Latin", "+No mark", "+Spanish", "-Webster"}));
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(rows()[2], "-Spanish");
    pickCheck(0);
    EXPECT_EQ(rows(), (std::vector<std::string>{"+Latin", "+No mark", "+Spanish", "+Webster"}));
    pickCheck(1);
    EXPECT_EQ(rows(), (std::vector<std::string>{"-Latin", "-No mark", "-Spanish", "-Webster"}));
    click(OKBT());
    EXPECT_NE(shown(kDialog), nullptr);
    EXPECT_TRUE(host_.messages.empty()) << "nothing is checked";
}

TEST_F(ExpDicDialog, WithoutAFolderItStaysForAnotherAttempt) {
    maintenance_.mExportDic();
    checkByMouse(0);
    click(OKBT());
    EXPECT_EQ(host_.messages, std::vector<std::string>{"Select a folder to put in the exported dictionaries."});
    ASSERT_NE(shown(kDialog), nullptr);
    EXPECT_TRUE(OKBT()->isEnabled());
    EXPECT_EQ(rows()[0], "+Latin");
}

TEST_F(ExpDicDialog, ExportsWhatIsCheckedAndOpensTheFolder) {
    makeLink(at("DF/A/Latin/mImg"), at("DF/A/Webster"));
    folder_.write("Out/Latin/FW", "replaced");
    folder_.write("Out/Webster/FW", "kept");
    host_.folders = {at("Out")};
    host_.answers = {Host::Answer::Yes, Host::Answer::No};
    maintenance_.mExportDic();
    pickCheck(0);
    auto* bar = control<ProgressBar>(kDialog, "PB");
    std::vector<int> values;
    host_.onYield = [&] {
        if (values.empty() || values.back() != bar->Value())
            values.push_back(bar->Value());
        EXPECT_TRUE(busy_.busy());
        EXPECT_FALSE(control<QPushButton>(kDialog, "CancelBT")->isEnabled());
        QTest::keyClick(shown(kDialog), Qt::Key_Escape);
        ASSERT_NE(shown(kDialog), nullptr);
    };

    click(OKBT());

    EXPECT_EQ(shown(kDialog), nullptr);
    EXPECT_EQ(values, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(host_.questions,
              (std::vector<std::string>{"There are already a dictionary 'Latin'in the destination folder. Do you want "
                                        "to delete it to continue this proces  ?",
                                        "There are already a dictionary 'Webster'in the destination folder. Do you "
                                        "want to delete it to continue this proces  ?"}));
    EXPECT_EQ(folder_.read("Out/Latin/mImg/FW"), "DF/A/Webster");
    EXPECT_EQ(folder_.read("Out/Webster/FW"), "kept");
    EXPECT_EQ(folder_.read("Out/Spanish/FW"), "DF/B/Spanish");
    EXPECT_FALSE(fs::exists(at("Out/No mark")));
    EXPECT_EQ(host_.launched, std::vector<fs::path>{at("Out")});
    EXPECT_EQ(host_.messages.size(), 1U) << "all went well";
}

TEST_F(ExpDicDialog, AFolderThatCannotBeOpenedIsReported) {
    host_.folders = {at("Out")};
    host_.launches = false;
    maintenance_.mExportDic();
    pickCheck(0);
    click(OKBT());
    ASSERT_EQ(host_.messages.size(), 2U);
    EXPECT_EQ(host_.messages[1], "The folder could not be opened: " + at("Out").native());
    EXPECT_EQ(shown(kDialog), nullptr);
}

TEST_F(ExpDicDialog, FailuresAreReportedOnceAndStopNoOther) {
    makeFifo(at("DF/A/Latin/pipe"));
    makeLink(at("DF/A/Webster/gone"), "nowhere");
    host_.folders = {at("Out")};
    maintenance_.mExportDic();
    pickCheck(0);
    click(OKBT());
    ASSERT_EQ(host_.messages.size(), 2U);
    EXPECT_NE(host_.messages[1].find(at("DF/A/Latin/pipe").native()), std::string::npos);
    EXPECT_NE(host_.messages[1].find(at("DF/A/Webster/gone").native()), std::string::npos);
    EXPECT_TRUE(fs::exists(at("Out/Spanish/FW")));
    EXPECT_EQ(shown(kDialog), nullptr);
}

} // namespace
} // namespace velmarin::test
