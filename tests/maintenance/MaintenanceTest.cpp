#include "MaintenanceFixture.h"
#include "files/FolderLock.h"
#include "platform/QtText.h"
#include "support/Tree.h"

#include <QLabel>
#include <QProgressBar>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

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
    EXPECT_EQ(treeOf(folder_.at("DF")).size(), 1U) << "no group was chosen";
    EXPECT_EQ(windows_.calls, Texts{});

    host_.messages.clear();
    host_.prompts.clear();
    host_.folders = {folder_.at("new/Webster"), folder_.at("DF/A")};
    maintenance_.mUpDateDictionary();
    EXPECT_EQ(host_.messages,
              Texts{"This dictionary is a new comer.\n\nThe old versio of this ditionary does not exists in the "
                    "Dictionary Folder. \nSo you have to decide which dictionary group to put this dictionary in. "
                    "Otherwise you have to make a new dictionary group.\nAfter closing this dialog, a new dialog (to "
                    "folder selection) will appear: \nTo use a existing group, selet the appropriate folder on the "
                    "dialog. To make a new group, make a new folder on the dialog."});
    EXPECT_EQ(host_.prompts.at(1), "To use a existing group. selet the appropriate folder on the dialog. To make a new "
                                   "group, make a new folder on the dialog.");
    EXPECT_EQ(host_.openedAt.back(), folder_.at("DF"));
    EXPECT_EQ(treeOf(folder_.at("DF/A/Webster")), treeOf(folder_.at("new/Webster")));
    EXPECT_EQ(windows_.calls, (Texts{"reset 0", "reset 1"}));
    EXPECT_FALSE(fs::exists(folder_.at("Desktop")));
}

TEST_F(UpdateDictionary, FailedInstallLeavesNoNewGroup) {
    folder_.link("new/Webster/txt", "nowhere");
    host_.folders.push_back(folder_.at("DF/A"));
    maintenance_.mUpDateDictionary();
    ASSERT_EQ(host_.messages.size(), 2U);
    EXPECT_TRUE(fs::is_empty(folder_.at("DF")));
}

TEST_F(UpdateDictionary, FailuresAreReportedOnceAtTheEnd) {
    folder_.write("DF/A/Webster/ind", "old index");
    for (const char* name : {"new/Webster/mSnd", "new/Webster/mMov"})
        folder_.fifo(name);
    maintenance_.mUpDateDictionary();
    ASSERT_EQ(host_.messages.size(), 1U);
    for (const char* name : {"new/Webster/mSnd", "new/Webster/mMov"})
        EXPECT_NE(host_.messages[0].find(folder_.at(name).native()), std::string::npos);
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

} // namespace
} // namespace velmarin::test
