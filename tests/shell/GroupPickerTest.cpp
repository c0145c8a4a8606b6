#include "shell/GroupPicker.h"

#include "controls/AnchoredLayout.h"
#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "shell/PageImages.h"
#include "shell/PreferenceWriter.h"
#include "shell/WindowListPort.h"
#include "shell/WindowServices.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace velmarin::test {
namespace {

/// Windows that use the rows that the test says, and "B" after a pick.
class FakeWindowList : public WindowListPort {
  public:
    SelectedDicRows inUse;
    std::vector<std::string> captions;

    const SelectedDicRows& SelectedDic() const override { return inUse; }
    void rebuildSelectedDic() override { inUse = {{1, "B"}}; }
    bool isShown(const FolderItem&) const override { return false; }
    const std::vector<std::string>& winItems() const override { return captions; }
    void setWinItemText(int, const std::string&) override {}
    HitModel& defaultHits() const override { throw std::logic_error("a pick has no hits"); }
    bool isLastVisible(const QWidget&) const override { return true; }
    void activated(int) override {}
};

/// A picker of the groups A, B and C, of which A is picked. "Bad" cannot be opened.
struct Picker : GroupPort {
    explicit Picker(const std::vector<std::string>& groups = {"A", "B", "C"}) {
        for (const std::string& group : groups)
            std::filesystem::create_directories(folder.path() / "D" / group);
        picker.mMakeSelectDicPU();
        pick(0);
        log.clear();
    }
    void SelectDicFolPU_MouseDown() override { log.emplace_back("pressed"); }
    bool changeGroup(const FolderItem& group) override {
        log.push_back(group.Name());
        return group.Name() != "Bad";
    }
    void groupChanged() override { log.emplace_back("changed"); }

    /// As a user does, who sees the pop-up first.
    void pick(int row) {
        emit popup().aboutToChoose();
        popup().setListIndex(row);
    }
    PopupMenu& popup() { return *picker.SelectDicFolPU(); }
    std::string help() { return fromQ(popup().toolTip()); }

    TempFolder folder;
    ScriptedHost host;
    std::vector<std::string> log;
    std::vector<BusyState::Action> posted;
    BusyState busy{[this](BusyState::Action action) { posted.push_back(std::move(action)); }};
    FolderItem dictionaryFolder{folder.path() / "D"};
    std::vector<std::string> newDicPref;
    PreferenceWriter preferences{[](std::string_view) {}, dictionaryFolder, newDicPref};
    PageImages pageImages{host, preferences, dictionaryFolder, {}};
    FakeWindowList windows;
    std::string tag;
    WindowServices services{host, busy, preferences, pageImages, windows, {}, dictionaryFolder, dictionaryFolder, tag};
    QWidget content;
    AnchoredLayout layout{&content, QSize(400, 100)};
    GroupPicker picker{*this, services, &content, layout};
};

TEST(GroupPicker, APickWhileBusyWaitsAndIsNotWhatARefusalRestores) {
    Picker made;
    {
        const Busy guard(made.busy);
        made.pick(1);
        emit made.popup().aboutToChoose();
        EXPECT_TRUE(made.log.empty());
        made.windows.inUse = {{1, "B"}};
    }
    made.posted.at(0)();
    EXPECT_TRUE(made.log.empty());
    EXPECT_EQ(made.picker.pick().row, 0);
}

TEST(GroupPicker, PicksANameInAnyCaseAndTellsTheWindowOfGroupsThatOpened) {
    Picker made({"Alone", "Bad"});
    made.windows.inUse.clear();
    EXPECT_FALSE(made.picker.pickNamed("missing"));
    EXPECT_TRUE(made.picker.pickNamed("bAD"));
    EXPECT_EQ(made.log, std::vector<std::string>{"Bad"});
    emit made.popup().MouseDown();
    EXPECT_EQ(made.log.back(), "pressed");
    made.picker.dropPick();
    EXPECT_EQ(made.picker.pick().row, -1);
    EXPECT_TRUE(made.picker.pickedFolder().isNil());
    made.picker.pickOnlyRow();
    EXPECT_EQ(made.picker.pick().row, -1) << "there are two";
}

TEST(GroupPicker, TheHelpNamesGroupsInUseOrWhereGroupsBelong) {
    Picker made;
    EXPECT_EQ(made.help(), "You cant select following items which are already selected: \rB");
    Picker empty{std::vector<std::string>()};
    EXPECT_NE(empty.help().find("no dictionaries yet"), std::string::npos);
    EXPECT_NE(empty.help().find(empty.dictionaryFolder.path().string()), std::string::npos);
    std::filesystem::remove(empty.dictionaryFolder.path());
    empty.folder.write("D", "a file");
    emit empty.popup().aboutToChoose();
    EXPECT_NE(empty.help().find("could not be read"), std::string::npos);
}

} // namespace
} // namespace velmarin::test
