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
using SideWindow = test::SideTest;
using UserDictionaryPopup = test::SideTest;
using TakingATarget = test::SideTest;
using SideActivationByItself = test::SideTest;

TEST_F(SideWindow, OpensWithItsDefaults) {
    SubWindow& side = open();
    EXPECT_EQ(side.width(), 352);
    EXPECT_EQ(side.findBar().target(), FindTarget::Find);
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB"})
        EXPECT_FALSE(control<QCheckBox>(name).isChecked()) << name;
    EXPECT_TRUE(control<QCheckBox>("DicAppCB").isChecked());
    EXPECT_TRUE(control<PopupMenu>("UserDicPU").isEnabled());
    EXPECT_EQ(control<QLabel>("StaticText1").text(), "User Dic.");
    EXPECT_FALSE(fs::exists(groupFolder.path() / "Subwindow"));
}

TEST_F(SideWindow, KeepsItsSettingsForTheNextOpening) {
    addUserDictionary("A", "a\n");
    addUserDictionary("B", "b\n");
    installWords("echo");
    open();
    useUserDictionary(1);
    control<QCheckBox>("LatinCB").click();
    control<QCheckBox>("DicAppCB").click();
    control<QCheckBox>("SyncronizeCB").click();
    control<QCheckBox>("DontClearCB").click();
    side().findBar().setTarget(FindTarget::DicApp);
    control<TextSizeBevelButton>("BVsize").SelectMenuFromFontSize(20);
    side().resize(400, side().height());
    fs::remove(preferences.path() / "temp.sh");
    const int font = control<TextFontBevelButton>("BVfonts").MenuValue();
    EF().setWholeText("gone");

    SubWindow& side = reopen();
    EXPECT_EQ(groupFolder.read("Subwindow"),
              "400\n" + std::to_string(font) + "\n6\nFalse\nTrue\nDicApp\nTrue\nTrue\nTrue\n1\n");
    EXPECT_EQ(side.width(), 400);
    EXPECT_EQ(side.findBar().target(), FindTarget::DicApp);
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB"})
        EXPECT_TRUE(control<QCheckBox>(name).isChecked()) << name;
    EXPECT_FALSE(control<QCheckBox>("DicAppCB").isChecked());
    EXPECT_EQ(control<PopupMenu>("UserDicPU").ListIndex(), 1);
    EXPECT_EQ(control<PopupMenu>("UserDicPU").List(1), "B");
    EXPECT_EQ(EF().font().pointSizeF(), 20);
    EXPECT_EQ(EF().textLength(), 0);
    EXPECT_FALSE(fs::exists(preferences.path() / "temp.sh")) << "restoring runs nothing";
    EXPECT_TRUE(host.questions.empty());
}

TEST(SideRestore, TakesWhatTheFileSays) {
    const struct {
        const char* name;
        const char* file;
        int width;
        bool popupEnabled;
        int row;
    } cases[] = {{"Whole", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n1\n", 360, true, 1},
                 {"UserDictionariesOff", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n1\n", 360, false, -1},
                 {"RowThatIsGone", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n7\n", 360, true, -1},
                 {"NegativeRow", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n-1\n", 360, true, -1},
                 {"NarrowerThanTheMinimum", "5\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 350, true, 0},
                 {"EmptyFile", "", 350, false, -1},
                 {"RowsBeyondTheMenus", "360\n-5\n999999\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 360, true, 0}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        SideFixture fixture;
        fixture.addUserDictionary("A", "a\n");
        fixture.addUserDictionary("B", "b\n");
        fixture.groupFolder.write("Subwindow", each.file);
        SubWindow& side = fixture.open();
        EXPECT_EQ(side.width(), each.width);
        EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").isEnabled(), each.popupEnabled);
        EXPECT_EQ(fixture.control<PopupMenu>("UserDicPU").ListIndex(), each.row);
    }
}

TEST_F(SideWindow, WritesToTheGroupItWasOpenedOn) {
    open();
    main.group = FolderItem();
    side().shut();
    EXPECT_TRUE(fs::exists(groupFolder.path() / "Subwindow"));
}

TEST(SideWindowFile, ThatCannotWriteTellsTheMainWindowOnlyOfALoss) {
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

TEST(SideWindowFile, ShutWhileItOpensLeavesItsFileAlone) {
    SideFixture fixture;
    fixture.addUserDictionary("A", "a\n");
    const std::string saved = "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n";
    fixture.groupFolder.write("Subwindow", saved);
    fixture.host.onYield = [&fixture] { fixture.main.frame.close(); };
    fixture.open();
    EXPECT_EQ(fixture.groupFolder.read("Subwindow"), saved);
}

TEST_F(UserDictionaryPopup, ListsVisibleFoldersAndLinksToFolders) {
    const fs::path folder = groupFolder.path() / "UserDictionaries";
    for (const char* name : {"b", "A", ".hidden"})
        fs::create_directories(folder / name);
    groupFolder.write("UserDictionaries/file", "");
    fs::create_directories(words.path() / "Elsewhere");
    fs::create_directory_symlink(words.path() / "Elsewhere", folder / "link");
    fs::create_symlink("/no/such/folder", folder / "dead");
    open();
    auto& popup = control<PopupMenu>("UserDicPU");
    side().mMakeUserDicPU();
    EXPECT_EQ(popup.rowCount(), 0) << "they are off";
    control<QCheckBox>("UserDicCB").click();
    EXPECT_TRUE(popup.isEnabled());
    QEnterEvent entered(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&popup, &entered);
    std::vector<std::string> names;
    for (int row = 0; row < popup.rowCount(); ++row)
        names.push_back(popup.List(row));
    EXPECT_EQ(names, (std::vector<std::string>{"A", "b", "Elsewhere"}));

    popup.setListIndex(1);
    fs::create_directory(folder / "AA");
    side().mMakeUserDicPU();
    EXPECT_EQ(popup.ListIndex(), 1) << "the number stays, not the name";
    EXPECT_EQ(popup.List(1), "AA");
    fs::remove_all(folder);
    side().mMakeUserDicPU();
    EXPECT_EQ(popup.rowCount(), 4) << "without the folder the list stays";
    control<QCheckBox>("UserDicCB").click();
    EXPECT_FALSE(popup.isEnabled());
}

TEST(FillingPopup, PressedWhileItFillsOpensWithAllItsRows) {
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

TEST_F(TakingATarget, SelectsTheWordForFindingOnly) {
    SubWindow& side = open();
    QApplication::setActiveWindow(&side);
    FindEF().setText("amor");
    side.takeTarget(FindTarget::DicApp);
    EXPECT_EQ(side.findBar().target(), FindTarget::DicApp);
    EXPECT_FALSE(FindEF().hasSelectedText());
    EXPECT_EQ(side.focusWidget(), &FindEF());
    EF().setFocus();
    side.takeTarget(FindTarget::Find);
    EXPECT_EQ(side.findBar().target(), FindTarget::Find);
    EXPECT_EQ(FindEF().selectedText(), "amor");
    EXPECT_EQ(side.focusWidget(), &FindEF());
}

TEST(SideActivation, LeavesTheFocusToTheSearchFieldUnlessAFieldIsClicked) {
    const std::pair<const char*, bool> cases[] = {{"", false},           {"FindEF", true},  {"EF", true},
                                                  {"FindBV", true},      {"BVfonts", true}, {"LatinCB", false},
                                                  {"StaticText1", false}};
    for (const auto& [under, stays] : cases) {
        SCOPED_TRACE(under);
        SideFixture fixture;
        SubWindow& side = fixture.open();
        QApplication::setActiveWindow(&fixture.main.frame);
        fixture.FindEF().setText("a");
        QWidget* control = *under == '\0' ? nullptr : &fixture.control<QWidget>(under);
        QCursor::setPos(control == nullptr ? side.mapToGlobal(QPoint(5, 300))
                                           : control->mapToGlobal(control->rect().center()));
        fixture.main.log.clear();
        QApplication::setActiveWindow(&side);
        auto& goBack = fixture.control<QTimer>("goBack");
        EXPECT_EQ(goBack.isActive(), !stays);
        if (!goBack.isActive())
            continue;
        QMetaObject::invokeMethod(&goBack, "timeout");
        EXPECT_EQ(fixture.main.log.back(), "focus");
        // The window is left before the time is over: the focus stays where it is.
        QApplication::setActiveWindow(&fixture.main.frame);
        EXPECT_FALSE(goBack.isActive());
    }
}

TEST_F(SideActivationByItself, ThatTheWindowAskedForItselfLeavesTheFocus) {
    SubWindow& side = open();
    QApplication::setActiveWindow(&main.frame);
    QCursor::setPos(side.mapToGlobal(QPoint(5, 300)));
    side.takeTarget(FindTarget::Find);
    QApplication::setActiveWindow(&side);
    EXPECT_FALSE(control<QTimer>("goBack").isActive());
}

TEST(SideEnd, ByTheMainWindowOrTheDesktopIsReportedAndSaved) {
    for (const Hanging hanging : {Hanging::Window, Hanging::Panel})
        for (const bool byMainWindow : {true, false}) {
            SideFixture fixture;
            SubWindow& side = fixture.open(hanging);
            const QPointer<SubWindow> watched(&side);
            int closed = 0;
            QObject::connect(&side, &SubWindow::closed, [&] { ++closed; });
            (byMainWindow ? static_cast<QWidget&>(fixture.main.frame) : side).close();
            EXPECT_EQ(closed, 1);
            EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_TRUE(watched.isNull() || !byMainWindow);
        }
}

} // namespace
} // namespace velmarin
