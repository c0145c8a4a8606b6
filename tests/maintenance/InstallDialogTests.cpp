#include "DialogTest.h"
#include "Trees.h"
#include "files/FolderLock.h"
#include "platform/QtText.h"

#include <QLabel>
#include <QProgressBar>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class InstallDialogs : public DialogTest {
  protected:
    InstallDialogs() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
    }
};

TEST_F(InstallDialogs, WhatIsNotADictionaryIsRefused) {
    fs::create_directories(at("empty"));
    makeLink(at("link"), at("new/Webster"));
    for (const char* chosen : {"empty", "link", "new/Webster/ind", "missing"}) {
        host_.messages.clear();
        host_.folders = {at(chosen)};
        maintenance_.mUpDateDictionary();
        EXPECT_EQ(host_.messages, std::vector<std::string>{"This is not a Dictionary !"}) << chosen;
    }
    EXPECT_TRUE(windows_.calls.empty());
}

TEST_F(InstallDialogs, AnUpdateShowsWaitDlgAndTellsNoWindow) {
    folder_.write("DF/A/Webster/ind", "old index");
    folder_.write("DF/B/WEBSTER/ind", "old index too");
    host_.folders = {at("new/Webster")};
    int shownWhileWorking = 0;
    host_.onYield = [&] {
        QWidget* dialog = shown("WaitDlg");
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(busy_.busy());
        if (++shownWhileWorking > 1)
            return;
        EXPECT_FALSE(dialog->isModal());
        EXPECT_EQ(dialog->findChild<QLabel*>("Label1")->text(), "Please wait a minute !");
        auto* bar = dialog->findChild<QProgressBar*>("ProgressBar1");
        const QImage first = bar->grab().toImage();
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar->grab().toImage() != first; })) << "it moves";
        QTest::keyClick(dialog, Qt::Key_Escape);
        dialog->close();
        EXPECT_TRUE(dialog->isVisible());
    };

    maintenance_.mUpDateDictionary();

    EXPECT_GT(shownWhileWorking, 10);
    EXPECT_EQ(shown("WaitDlg"), nullptr);
    EXPECT_FALSE(busy_.busy());
    EXPECT_TRUE(host_.messages.empty());
    EXPECT_TRUE(windows_.calls.empty());
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
    EXPECT_EQ(folder_.read("DF/B/WEBSTER/ind"), "new index");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/ind"), "old index");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-1/ind"), "old index too");
}

TEST_F(InstallDialogs, ANewDictionaryGoesIntoTheChosenGroupAndEveryWindowIsReset) {
    fs::create_directory(at("DF/A"));
    host_.folders = {at("new/Webster"), at("DF/A")};

    maintenance_.mUpDateDictionary();

    ASSERT_EQ(host_.messages.size(), 1U);
    EXPECT_EQ(host_.messages[0],
              "This dictionary is a new comer.\n\nThe old versio of this ditionary does not exists in the Dictionary "
              "Folder. \nSo you have to decide which dictionary group to put this dictionary in. Otherwise you have to "
              "make a new dictionary group.\nAfter closing this dialog, a new dialog (to folder selection) will "
              "appear: \nTo use a existing group, selet the appropriate folder on the dialog. To make a new group, "
              "make a new folder on the dialog.");
    ASSERT_EQ(host_.prompts.size(), 2U);
    EXPECT_EQ(host_.prompts[1], "To use a existing group. selet the appropriate folder on the dialog. To make a new "
                                "group, make a new folder on the dialog.");
    EXPECT_EQ(host_.openedAt[1], at("DF"));
    EXPECT_EQ(treeOf(at("DF/A/Webster")), treeOf(at("new/Webster")));
    EXPECT_EQ(windows_.calls, (std::vector<std::string>{"reset 0", "reset 1"}));
    EXPECT_FALSE(fs::exists(at("Desktop")));
}

TEST_F(InstallDialogs, WithoutAGroupNothingIsCopied) {
    host_.folders = {at("new/Webster")};
    maintenance_.mUpDateDictionary();
    EXPECT_EQ(host_.messages.size(), 1U);
    EXPECT_TRUE(fs::is_empty(at("DF")));
    EXPECT_TRUE(windows_.calls.empty());
    EXPECT_EQ(shown("WaitDlg"), nullptr);
}

TEST_F(InstallDialogs, FailuresAreReportedOnceAtTheEnd) {
    folder_.write("DF/A/Webster/ind", "old index");
    makeFifo(at("new/Webster/mSnd"));
    makeFifo(at("new/Webster/mMov"));
    host_.folders = {at("new/Webster")};
    maintenance_.mUpDateDictionary();
    ASSERT_EQ(host_.messages.size(), 1U);
    EXPECT_NE(host_.messages[0].find(at("new/Webster/mMov").native()), std::string::npos);
    EXPECT_NE(host_.messages[0].find(at("new/Webster/mSnd").native()), std::string::npos);
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(InstallDialogs, WaitDlgSaysWhatTheUpdateWaitsFor) {
    folder_.write("DF/A/Webster/ind", "old index");
    host_.folders = {at("new/Webster")};
    Work quiet;
    auto other = std::make_optional<FolderLock>(at("DF"), FolderLock::Kind::Alone, quiet);
    std::string said;
    host_.onYield = [&] {
        const std::string label = fromQ(shown("WaitDlg")->findChild<QLabel*>("Label1")->text());
        if (said.empty() && label != "Please wait a minute !")
            said = label;
        if (!said.empty())
            other.reset();
    };
    maintenance_.mUpDateDictionary();
    EXPECT_EQ(said, "Waiting for another run on \"DF\"");
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

} // namespace
} // namespace velmarin::test
