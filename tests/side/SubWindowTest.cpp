#include "SideFixture.h"

#include "controls/QtText.h"
#include "side/UserDictionaryMaker.h"

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QScreen>
#include <QTest>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::SideFixture;

struct PlaceCase {
    const char* name;
    QRect design;
    QRect larger; ///< in a window 100 wider and 50 higher
};

class SideLayout : public testing::TestWithParam<PlaceCase> {};

TEST_P(SideLayout, StandsAndStretches) {
    SideFixture fixture;
    SubWindow& side = fixture.open();
    const auto placeAt = [&](int width, int height) {
        // The height is the main window's.
        fixture.main.frame.resize(fixture.main.frame.width(), height);
        side.resize(width, height);
        return fixture.control<QWidget>(GetParam().name).geometry();
    };
    EXPECT_EQ(placeAt(352, 705), GetParam().design);
    EXPECT_EQ(placeAt(452, 755), GetParam().larger);
}

INSTANTIATE_TEST_SUITE_P(Controls, SideLayout,
                         testing::Values(PlaceCase{"EF", {20, 3, 330, 547}, {20, 3, 430, 597}},
                                         PlaceCase{"BVfonts", {20, 557, 75, 20}, {20, 607, 75, 20}},
                                         PlaceCase{"BVsize", {20, 577, 75, 20}, {20, 627, 75, 20}},
                                         PlaceCase{"FindRect", {104, 557, 244, 38}, {104, 607, 344, 38}},
                                         PlaceCase{"FindBV", {112, 565, 24, 24}, {112, 615, 24, 24}},
                                         PlaceCase{"FindEF", {138, 564, 185, 25}, {138, 614, 285, 25}},
                                         PlaceCase{"FindClBV", {306, 569, 16, 16}, {406, 619, 16, 16}},
                                         PlaceCase{"FindColorRect", {327, 568, 16, 16}, {427, 618, 16, 16}},
                                         PlaceCase{"SyncronizeCB", {20, 608, 179, 20}, {20, 658, 179, 20}},
                                         PlaceCase{"DontClearCB", {20, 630, 207, 20}, {20, 680, 207, 20}},
                                         PlaceCase{"LatinCB", {231, 608, 100, 20}, {231, 658, 100, 20}},
                                         PlaceCase{"DicAppCB", {231, 629, 112, 20}, {231, 679, 112, 20}},
                                         PlaceCase{"StaticText1", {20, 659, 72, 20}, {20, 709, 72, 20}},
                                         PlaceCase{"UserDicBT", {87, 656, 67, 22}, {87, 706, 67, 22}},
                                         PlaceCase{"UserDicCB", {166, 656, 53, 20}, {166, 706, 53, 20}},
                                         PlaceCase{"UserDicPU", {231, 656, 112, 20}, {231, 706, 112, 20}}),
                         [](const auto& tested) { return tested.param.name; });

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

TEST(SideWindow, ThatCannotWriteSaysSoOnce) {
    SideFixture fixture;
    fixture.open();
    fs::create_directory(fixture.groupFolder.path() / "Subwindow");
    fixture.side().shut();
    fixture.side().shut();
    EXPECT_EQ(fixture.host.messages.size(), 1U);
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

struct HangCase {
    const char* name;
    QRect frame, content;
    int width;
    QRect place;
};

class SideHangs : public testing::TestWithParam<HangCase> {};

TEST_P(SideHangs, At) {
    EXPECT_EQ(placeBeside(GetParam().frame, GetParam().content, GetParam().width, QRect(0, 0, 1920, 1080)),
              GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, SideHangs,
    testing::Values(
        HangCase{"FlushWithTheFrame", {100, 100, 842, 840}, {102, 129, 838, 809}, 352, {942, 129, 352, 809}},
        HangCase{"OverlapsWhereTheScreenEnds", {900, 0, 900, 840}, {900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
        HangCase{"JustFits", {0, 0, 1568, 840}, {0, 30, 1568, 810}, 352, {1568, 30, 352, 810}},
        HangCase{"MainWindowOffTheScreen", {1900, 0, 900, 840}, {1900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
        HangCase{"WiderThanTheScreen", {100, 0, 900, 840}, {100, 30, 900, 810}, 3000, {0, 30, 3000, 810}}),
    [](const auto& tested) { return tested.param.name; });

TEST(SideHangsAs, APanelWhereNoProgramPlacesItsWindows) {
    EXPECT_EQ(hangingFor("wayland"), Hanging::Panel);
    EXPECT_EQ(hangingFor("wayland-egl"), Hanging::Panel);
    EXPECT_EQ(hangingFor("xcb"), Hanging::Window);
    EXPECT_EQ(hangingFor("offscreen"), Hanging::Window);
}

TEST(SideHangsAsWindow, FollowsTheMainWindow) {
    SideFixture fixture;
    fixture.main.frame.setGeometry(10, 10, 300, 500);
    SubWindow& side = fixture.open();
    const auto expected = [&] {
        return placeBeside(fixture.main.frame.frameGeometry(), fixture.main.frame.geometry(), side.width(),
                           side.screen()->availableGeometry());
    };
    EXPECT_TRUE(side.isWindow());
    EXPECT_EQ(side.geometry(), expected());
    fixture.main.frame.move(40, 20);
    EXPECT_EQ(side.geometry(), expected());
    fixture.main.frame.resize(280, 400);
    EXPECT_EQ(side.geometry(), expected());
    EXPECT_EQ(side.height(), 400);
}

TEST(SideHangsAsWindow, IsMadeWiderAtItsFreeEdge) {
    SideFixture fixture;
    fixture.main.frame.setGeometry(0, 0, 200, 500);
    SubWindow& side = fixture.open();
    const int before = side.width();
    const int left = side.x();
    auto& grip = fixture.control<QWidget>("EdgeGrip");
    ASSERT_GT(grip.x(), side.width() / 2);
    const QPoint from = grip.mapToGlobal(QPoint(2, 100));
    const auto drag = [&](QEvent::Type type, int by) {
        QMouseEvent event(type, QPointF(2, 100), QPointF(from + QPoint(by, 0)),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&grip, &event);
    };
    drag(QEvent::MouseButtonPress, 0);
    drag(QEvent::MouseMove, 30);
    EXPECT_EQ(side.width(), before + 30);
    EXPECT_EQ(side.x(), left);
    drag(QEvent::MouseMove, -300);
    EXPECT_EQ(side.width(), 350);
}

TEST(SideHangsAsPanel, StandsInsideTheMainWindow) {
    SideFixture fixture;
    fixture.groupFolder.write("Subwindow", "400\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
    fixture.main.frame.setCentralWidget(new QWidget);
    SubWindow& side = fixture.open(Hanging::Panel);
    EXPECT_FALSE(side.isWindow());
    EXPECT_TRUE(side.isVisible());
    EXPECT_EQ(side.window(), &fixture.main.frame);
    EXPECT_EQ(side.width(), 400);
    EXPECT_EQ(side.mapTo(&fixture.main.frame, QPoint(side.width(), 0)).x(), fixture.main.frame.width());
    fixture.reopen();
    EXPECT_EQ(fixture.main.frame.findChildren<QDockWidget*>().size(), 1);
    EXPECT_EQ(fixture.side().width(), 400);
}

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

constexpr const char* kMade =
    "A user dictionary was ceated. Put the dictionary or its alias in the UserDictionary found "
    "in the DictionaryFolder.";

struct DialogueCase {
    const char* name;
    const char* source; ///< what the data file holds; nothing: the dialogue is cancelled
    bool folderChosen;
    std::vector<std::string> messages;
    bool launched;
};

class MakingAUserDictionary : public testing::TestWithParam<DialogueCase> {};

TEST_P(MakingAUserDictionary, TellsAndAsks) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fs::create_directory(work.path() / "New");
    if (GetParam().source != nullptr)
        fixture.host.files.push_back(work.write("data.txt", GetParam().source));
    if (GetParam().folderChosen)
        fixture.host.folders.push_back(work.path() / "New");
    QTest::mouseClick(&fixture.control<QWidget>("UserDicBT"), Qt::LeftButton);
    EXPECT_EQ(fixture.host.messages, GetParam().messages);
    EXPECT_EQ(!fixture.host.launched.empty(), GetParam().launched);
    EXPECT_EQ(fs::exists(work.path() / "New/Index.txt"), GetParam().launched);
    EXPECT_TRUE(fs::is_directory(fixture.groupFolder.path() / "UserDictionaries"));
}

INSTANTIATE_TEST_SUITE_P(
    Courses, MakingAUserDictionary,
    testing::Values(DialogueCase{"NoData", nullptr, false, {"Select a data file for a Dictionary. "}, false},
                    DialogueCase{"NoFolder",
                                 "a\tb\n",
                                 false,
                                 {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary."},
                                 false},
                    DialogueCase{"Made",
                                 "a\tb\n",
                                 true,
                                 {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.", kMade},
                                 true},
                    DialogueCase{
                        "NotUtf8",
                        "\xE9\tb\nc\xE9\n",
                        true,
                        {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.",
                         "2 lines of the data are not in UTF-8. They were taken over byte for byte, but some of their "
                         "letters cannot be shown.",
                         kMade},
                        true}),
    [](const auto& tested) { return tested.param.name; });

TEST(MakingAUserDictionary, ShowsItsProgressInTheMainWindow) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fixture.host.files.push_back(work.write("data.txt", "b\na\n"));
    fixture.host.folders.push_back(work.path());
    bool busyThroughout = true;
    fixture.host.onYield = [&] { busyThroughout = busyThroughout && fixture.busy.busy(); };
    fixture.main.log.clear();
    fixture.side().mMakeUserDictionary();
    EXPECT_EQ(fixture.main.log,
              (std::vector<std::string>{"text I'm counting the lines of the data.", "bar",
                                        "text I'm making the word for sorting and searching.", "max 2", "value 0",
                                        "value 2", "text I'm making the index data.", "max 1", "value 0",
                                        "text I'm sorting the index data. The progress bar looks frozen.", "value 1",
                                        "text Now I'm writing data.", "value 0", "value 1", "text "}));
    EXPECT_TRUE(busyThroughout);
    EXPECT_GT(fixture.host.yields, 5);
    EXPECT_FALSE(fixture.busy.busy());
}

TEST(MakingAUserDictionary, KeepsAnEarlierOneOnTheDesktop) {
    SideFixture fixture;
    const test::TempFolder work;
    work.write("Mine/Text.txt", "precious");
    fixture.host.files.push_back(work.write("data.txt", "a\tb\n"));
    fixture.host.folders.push_back(work.path() / "Mine");
    makeUserDictionaryByDialogue(FolderItem(fixture.groupFolder.path()), fixture.main, fixture.host, fixture.busy,
                                 FolderItem(work.path() / "Desktop"));
    EXPECT_EQ(fixture.host.messages.back(), kMade);
    EXPECT_EQ(work.read("Mine/Text.txt"), "a\tb\n");
    EXPECT_EQ(work.read("Desktop/Mine-Oldversion-0/Text.txt"), "precious");
}

TEST(MakingAUserDictionary, ThatFailsSaysWhyAndLeavesTheSearchFieldEmpty) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fixture.host.files.push_back(work.path() / "none.txt");
    fixture.host.folders.push_back(work.path());
    fixture.side().mMakeUserDictionary();
    ASSERT_EQ(fixture.host.messages.size(), 3U);
    EXPECT_NE(fixture.host.messages.back().find("none.txt"), std::string::npos);
    EXPECT_EQ(fixture.main.log.back(), "text ");
    EXPECT_TRUE(fixture.host.launched.empty());
}

} // namespace
} // namespace velmarin
