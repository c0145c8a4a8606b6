#include "SideFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QTest>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::SideFixture;

TEST(SideWindow, OpensWithItsDefaults) {
    SideFixture fixture;
    SubWindow& side = fixture.open();
    EXPECT_EQ(side.width(), 352);
    EXPECT_EQ(side.height(), fixture.main.frame.height());
    EXPECT_EQ(side.findBar().target(), FindTarget::Find);
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB"})
        EXPECT_FALSE(fixture.control<QCheckBox>(name).isChecked()) << name;
    EXPECT_TRUE(fixture.control<QCheckBox>("DicAppCB").isChecked());
    EXPECT_TRUE(fixture.control<PopupMenu>("UserDicPU").isEnabled());
    EXPECT_EQ(fixture.EF().textLength(), 0);
    EXPECT_EQ(fixture.control<QLabel>("StaticText1").text(), "User Dic.");
    EXPECT_FALSE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
}

TEST(SideWindow, KeepsItsSettingsForTheNextOpening) {
    SideFixture fixture;
    fixture.addUserDictionary("A", "a\n");
    fixture.addUserDictionary("B", "b\n");
    fixture.installWords("echo");
    fixture.open();
    fixture.useUserDictionary(1);
    fixture.control<QCheckBox>("LatinCB").click();
    fixture.control<QCheckBox>("DicAppCB").click();
    fixture.control<QCheckBox>("SyncronizeCB").click();
    fixture.control<QCheckBox>("DontClearCB").click();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.control<TextSizeBevelButton>("BVsize").SelectMenuFromFontSize(20);
    fixture.side().resize(400, fixture.side().height());
    fs::remove(fixture.preferences.path() / "temp.sh");
    const int font = fixture.control<TextFontBevelButton>("BVfonts").MenuValue();
    fixture.EF().setWholeText("gone");

    SubWindow& side = fixture.reopen();
    EXPECT_EQ(fixture.groupFolder.read("Subwindow"),
              "400\n" + std::to_string(font) + "\n6\nFalse\nTrue\nDicApp\nTrue\nTrue\nTrue\n1\n");
    EXPECT_EQ(side.width(), 400);
    EXPECT_EQ(side.findBar().target(), FindTarget::DicApp);
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB"})
        EXPECT_TRUE(fixture.control<QCheckBox>(name).isChecked()) << name;
    EXPECT_FALSE(fixture.control<QCheckBox>("DicAppCB").isChecked());
    EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").ListIndex(), 1);
    EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").List(1), "B");
    EXPECT_EQ(fixture.EF().font().pointSizeF(), 20);
    EXPECT_EQ(fixture.EF().textLength(), 0);
    EXPECT_FALSE(fs::exists(fixture.preferences.path() / "temp.sh")) << "restoring runs nothing";
    EXPECT_TRUE(fixture.host.questions.empty());
}

struct RestoreCase {
    const char* name;
    const char* file;
    int width;
    bool popupEnabled;
    int row;
};

class SideRestore : public testing::TestWithParam<RestoreCase> {};

TEST_P(SideRestore, TakesWhatTheFileSays) {
    SideFixture fixture;
    fixture.addUserDictionary("A", "a\n");
    fixture.addUserDictionary("B", "b\n");
    fixture.groupFolder.write("Subwindow", GetParam().file);
    SubWindow& side = fixture.open();
    EXPECT_EQ(side.width(), GetParam().width);
    EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").isEnabled(), GetParam().popupEnabled);
    EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").ListIndex(), GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(
    Files, SideRestore,
    testing::Values(
        RestoreCase{"Whole", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n1\n", 360, true, 1},
        RestoreCase{"UserDictionariesOff", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n1\n", 360, false, -1},
        RestoreCase{"RowThatIsNoMore", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n7\n", 360, true, -1},
        RestoreCase{"NegativeRow", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n-1\n", 360, true, -1},
        RestoreCase{"NarrowerThanItGets", "5\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 350, true, 0},
        RestoreCase{"EmptyFile", "", 350, false, -1},
        RestoreCase{"RowsThatNoMenuHas", "360\n-5\n999999\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 360, true, 0}),
    [](const auto& tested) { return tested.param.name; });

TEST(SideWindow, WritesToTheGroupItWasOpenedOn) {
    SideFixture fixture;
    fixture.open();
    fixture.main.group = FolderItem();
    fixture.side().shut();
    EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
}

TEST(SideWindow, ThatCannotWriteTellsTheMainWindowOnlyOfALoss) {
    SideFixture fixture;
    fs::create_directory(fixture.groupFolder.path() / "Subwindow");
    // Without it a panel takes the whole width.
    fixture.main.frame.setCentralWidget(new QWidget);
    for (const Hanging hanging : {Hanging::Panel, Hanging::Window}) {
        fixture.open(hanging);
        QApplication::processEvents();
        fixture.reopen();
        fixture.side().shut();
        EXPECT_EQ(fixture.main.notWritten, std::vector<std::string>{}) << "nothing was changed";
    }
    fixture.open();
    fixture.control<QCheckBox>("DontClearCB").click();
    fixture.side().shut();
    fixture.side().shut();
    EXPECT_EQ(fixture.main.notWritten, std::vector<std::string>{(fixture.groupFolder.path() / "Subwindow").string()});
    EXPECT_EQ(fixture.host.messages, std::vector<std::string>{});
}

TEST(SideWindow, ShutWhileItOpensLeavesItsFileAlone) {
    SideFixture fixture;
    fixture.addUserDictionary("A", "a\n");
    const std::string saved = "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n";
    fixture.groupFolder.write("Subwindow", saved);
    fixture.host.onYield = [&fixture] { fixture.main.frame.close(); };
    fixture.open();
    EXPECT_EQ(fixture.groupFolder.read("Subwindow"), saved);
}

TEST(SideWindow, TickingUserDictionariesEnablesTheirPopup) {
    SideFixture fixture;
    fixture.open();
    QCheckBox& box = fixture.control<QCheckBox>("UserDicCB");
    box.click();
    EXPECT_TRUE(fixture.control<PopupMenu>("UserDicPU").isEnabled());
    box.click();
    EXPECT_FALSE(fixture.control<PopupMenu>("UserDicPU").isEnabled());
}

TEST(UserDictionaryPopup, ListsVisibleFoldersAndLinksToFolders) {
    SideFixture fixture;
    const fs::path folder = fixture.groupFolder.path() / "UserDictionaries";
    for (const char* name : {"b", "A", ".hidden"})
        fs::create_directories(folder / name);
    fixture.groupFolder.write("UserDictionaries/file", "");
    fs::create_directories(fixture.words.path() / "Elsewhere");
    fs::create_directory_symlink(fixture.words.path() / "Elsewhere", folder / "link");
    fs::create_symlink("/no/such/folder", folder / "dead");
    fixture.open();
    auto& popup = fixture.control<PopupMenu>("UserDicPU");
    fixture.side().mMakeUserDicPU();
    EXPECT_EQ(popup.rowCount(), 0) << "they are off";
    fixture.control<QCheckBox>("UserDicCB").click();
    QEnterEvent entered(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&popup, &entered);
    std::vector<std::string> names;
    for (int row = 0; row < popup.rowCount(); ++row)
        names.push_back(popup.List(row));
    EXPECT_EQ(names, (std::vector<std::string>{"A", "b", "Elsewhere"}));

    popup.setListIndex(1);
    fs::create_directory(folder / "AA");
    fixture.side().mMakeUserDicPU();
    EXPECT_EQ(popup.ListIndex(), 1) << "the number stays, not the name";
    EXPECT_EQ(popup.List(1), "AA");
    fs::remove_all(folder);
    fixture.side().mMakeUserDicPU();
    EXPECT_EQ(popup.rowCount(), 4) << "without the folder the list stays";
}

TEST(UserDictionaryPopup, PressedWhileItFillsOpensWithAllItsRows) {
    SideFixture fixture;
    for (const char* name : {"A", "B", "C"})
        fs::create_directories(fixture.groupFolder.path() / "UserDictionaries" / name);
    fixture.open();
    auto& popup = fixture.control<PopupMenu>("UserDicPU");
    fixture.control<QCheckBox>("UserDicCB").click();
    bool openInBetween = false;
    fixture.host.onYield = [&] {
        if (popup.rowCount() == 1)
            QTest::mousePress(&popup, Qt::LeftButton);
        openInBetween = openInBetween || popup.view()->isVisible();
    };
    QEnterEvent entered(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&popup, &entered);
    EXPECT_FALSE(openInBetween);
    EXPECT_TRUE(popup.view()->isVisible());
    EXPECT_EQ(popup.rowCount(), 3);
    popup.hidePopup();
}

TEST(TakingATarget, SelectsTheWordForFindingOnly) {
    SideFixture fixture;
    SubWindow& side = fixture.open();
    QApplication::setActiveWindow(&side);
    fixture.FindEF().setText("amor");
    side.takeTarget(FindTarget::DicApp);
    EXPECT_EQ(side.findBar().target(), FindTarget::DicApp);
    EXPECT_FALSE(fixture.FindEF().hasSelectedText());
    EXPECT_EQ(side.focusWidget(), &fixture.FindEF());
    fixture.EF().setFocus();
    side.takeTarget(FindTarget::Find);
    EXPECT_EQ(side.findBar().target(), FindTarget::Find);
    EXPECT_EQ(fixture.FindEF().selectedText(), "amor");
    EXPECT_EQ(side.focusWidget(), &fixture.FindEF());
}

/// Brings the window to the front with the pointer over a control (nothing: over none).
class SideActivation : public testing::TestWithParam<std::pair<const char*, bool>> {};

TEST_P(SideActivation, LeavesTheFocusToTheSearchFieldUnlessAFieldIsClicked) {
    SideFixture fixture;
    SubWindow& side = fixture.open();
    QApplication::setActiveWindow(&fixture.main.frame);
    const auto [name, stays] = GetParam();
    QWidget& under = std::string(name).empty() ? static_cast<QWidget&>(side) : fixture.control<QWidget>(name);
    fixture.FindEF().setText("a");
    QCursor::setPos(under.mapToGlobal(std::string(name).empty() ? QPoint(5, 300) : under.rect().center()));
    fixture.main.log.clear();
    QApplication::setActiveWindow(&side);
    auto& goBack = fixture.control<QTimer>("goBack");
    EXPECT_EQ(goBack.isActive(), !stays);
    if (!goBack.isActive())
        return;
    QMetaObject::invokeMethod(&goBack, "timeout");
    EXPECT_EQ(fixture.main.log.back(), "focus");
    // Away again before it is time: whoever has the focus then keeps it.
    QApplication::setActiveWindow(&fixture.main.frame);
    EXPECT_FALSE(goBack.isActive());
}

TEST(SideActivationByItself, ThatTheWindowAskedForItselfLeavesTheFocus) {
    SideFixture fixture;
    SubWindow& side = fixture.open();
    QApplication::setActiveWindow(&fixture.main.frame);
    QCursor::setPos(side.mapToGlobal(QPoint(5, 300)));
    side.takeTarget(FindTarget::Find);
    QApplication::setActiveWindow(&side);
    EXPECT_FALSE(fixture.control<QTimer>("goBack").isActive());
}

INSTANTIATE_TEST_SUITE_P(Controls, SideActivation,
                         testing::Values(std::pair{"", false}, std::pair{"FindEF", true}, std::pair{"EF", true},
                                         std::pair{"FindBV", true}, std::pair{"BVfonts", true},
                                         std::pair{"LatinCB", false}, std::pair{"StaticText1", false}),
                         [](const auto& tested) {
                             const std::string name = tested.param.first;
                             return name.empty() ? "Ground" : name;
                         });

class SideEnd : public testing::TestWithParam<Hanging> {};

TEST_P(SideEnd, ComesWithTheMainWindows) {
    SideFixture fixture;
    SubWindow& side = fixture.open(GetParam());
    const QPointer<SubWindow> watched(&side);
    int closed = 0;
    QObject::connect(&side, &SubWindow::closed, [&] { ++closed; });
    fixture.main.frame.close();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST_P(SideEnd, ByTheDesktopIsToldAsWell) {
    SideFixture fixture;
    SubWindow& side = fixture.open(GetParam());
    int closed = 0;
    QObject::connect(&side, &SubWindow::closed, [&] { ++closed; });
    side.close();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, SideEnd, testing::Values(Hanging::Window, Hanging::Panel),
                         [](const auto& tested) { return tested.param == Hanging::Window ? "Window" : "Panel"; });

} // namespace
} // namespace velmarin
