#include "controls/ScreenFit.h"
#include "shell/PlacementKeeper.h"
#include "shell/PreferenceWriter.h"
#include "support/TempFolder.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

struct Preferences {
    TempFolder files;
    FolderItem folder{files.path()};
    std::vector<std::string> newDicPref;
    std::vector<std::string> reported;
    PreferenceWriter writer{[this](std::string_view text) { reported.emplace_back(text); }, folder, newDicPref};
};

TEST(PreferenceWriter, ReportsAFailureOncePerFileAndReason) {
    const struct {
        std::string path, why; ///< no reason for a success
        std::size_t reported;  ///< so far
    } steps[] = {
        {"/G/P", "denied", 1},    {"/G/P", "denied", 1}, {"/H/P", "denied", 1}, // the same reason
        {"/H/P", "full", 1},                                                    // the same file
        {"/I/P", "too large", 2}, {"/G/P", "", 2},       {"/G/P", "denied", 3}, // it could be written in between
    };
    Preferences preferences;
    const auto note = [&](const std::string& path, const std::string& why) {
        preferences.writer.note(path, why.empty() ? Result() : Result(Failure{FolderItem(path), why}));
        return preferences.reported.size();
    };
    for (const auto& step : steps)
        EXPECT_EQ(note(step.path, step.why), step.reported) << step.path << ' ' << step.why;
    preferences.writer.forgetFailures();
    EXPECT_EQ(note("/G/P", "denied"), 4U);
}

/// A main window whose central widget is at least 64 pixels wide and high.
struct PlacedWindow : QMainWindow {
    explicit PlacedWindow(Preferences& preferences) : keeper(*this, preferences.writer) {
        setCentralWidget(new QWidget);
        centralWidget()->setMinimumSize(64, 64);
        keeper.setFirstPlacement({500, 400}, 300);
        keeper.restore();
        show();
    }
    void moveEvent(QMoveEvent*) override { keeper.save(); }
    void resizeEvent(QResizeEvent*) override { keeper.save(); }
    PlacementKeeper keeper;
};

TEST(Placement, ASavedOneIsTakenUnlessTheWindowCouldNotBeReached) {
    // The place is that of the content, with a null position for any that shows the whole window.
    const std::pair<const char*, QRect> cases[] = {
        {"40\t50\t600\t450\t\n", {40, 50, 600, 450}},
        {"40\t50\t600\n", {40, 50, 600, 64}},
        {"\n", {0, 0, 64, 64}},
        {"", {0, 0, 500, 400}},
        {"0\t10\t31999\t64\t\n", {0, 10, 1600, 64}},
        {"-20\t30\t600\t450\t\n", {-20, 30, 600, 450}},
        {"3000\t1500\t600\t450\t\n", {0, 0, 600, 450}},
        {"99999999\t-99999999\t300\t200\t\n", {0, 0, 300, 200}},
    };
    for (const auto& [saved, place] : cases) {
        SCOPED_TRACE(saved);
        Preferences preferences;
        preferences.files.write("MainWindow", saved);
        PlacedWindow window(preferences);
        EXPECT_EQ(window.centralWidget()->size(), place.size());
        if (place.topLeft().isNull())
            EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
        else
            EXPECT_EQ(window.pos(), place.topLeft());
    }
}

TEST(Placement, IsSavedOnceTheUserMovesTheWindow) {
    Preferences preferences;
    const std::string saved = "3000\t1500\t600\t450\t\n", moved = "20\t30\t600\t450\t\n";
    const auto file = [&] { return preferences.files.read("MainWindow"); };
    preferences.files.write("MainWindow", saved);
    PlacedWindow window(preferences);
    const QPoint broughtTo = window.pos();
    window.move(30, 30);
    EXPECT_EQ(file(), saved) << "the window manager placed it";
    window.keeper.cameToFront();
    window.keeper.restore();
    EXPECT_EQ(file(), saved) << "a pick of a group placed it";
    window.move(20, 30);
    EXPECT_EQ(file(), moved);
    window.move(broughtTo);
    EXPECT_NE(file(), moved) << "a move back is a move too";

    std::filesystem::remove(preferences.files.path() / "MainWindow");
    preferences.files.write("MainWindow/file", "in the way");
    window.move(25, 35);
    window.move(26, 36);
    EXPECT_EQ(preferences.reported.size(), 1U);
    EXPECT_EQ(PlacedWindow(preferences).pos(), QPoint(26, 36)) << "what could not be saved lasts for the run";
}

const QRect kLaptop(0, 0, 1366, 768);
const QRect kRightOfIt(1366, -200, 1920, 1080);
const QRect kBelowAPanel(0, 30, 1366, 738);

TEST(SavedPlace, StaysWhereItsTitleBarCanBeDraggedAndIsOtherwiseShownWhole) {
    const struct {
        const char* reason;
        WindowPlace saved;
        QList<QRect> screens;
        bool stays;
    } cases[] = {
        {"larger than the screen", {100, 100, 3000, 2000}, {kLaptop}, true},
        {"a corner of the title bar is left", {-750, 740, 838, 600}, {kLaptop}, true},
        {"right of the screen", {2600, 100, 1000, 900}, {kLaptop}, false},
        {"on the second screen", {2600, 100, 600, 500}, {kLaptop, kRightOfIt}, true},
        {"beside both screens", {1000, -900, 600, 500}, {kLaptop, kRightOfIt}, false},
        {"only the lower edge is visible", {100, -580, 838, 600}, {kLaptop}, false},
        {"title bar under a panel", {100, 0, 838, 600}, {kBelowAPanel}, false},
        {"too few pixels to grab", {1360, 100, 838, 600}, {kLaptop}, false},
        {"larger and far away", {1 << 20, -(1 << 20), 32000, 32000}, {kLaptop, kRightOfIt}, false},
        {"no screen is known", {9000, 9000, 838, 600}, {}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const WindowPlace place = withinReach(c.saved, c.screens);
        EXPECT_EQ(place == c.saved, c.stays);
        const auto contains = [&](const QRect& screen) { return screen.contains(place); };
        EXPECT_TRUE(c.stays || std::any_of(c.screens.begin(), c.screens.end(), contains));
        EXPECT_LE(place.width(), c.saved.width());
        EXPECT_EQ(withinReach(place, c.screens), place);
    }
    const WindowPlace nearest = withinReach({4000, 100, 600, 500}, {kLaptop, kRightOfIt});
    EXPECT_TRUE(kRightOfIt.contains(nearest)) << "the nearest of two screens takes it";
    EXPECT_EQ(QRect(nearest.x(), 100, 600, 500), nearest);
}

TEST(FirstPlace, FitsTheScreenAndLeavesRoomForTheWindowBesideIt) {
    for (const QRect& screen : {kLaptop, QRect(0, 30, 1280, 994), kRightOfIt}) {
        const WindowPlace place = firstPlace({838, 831}, 352, screen);
        EXPECT_TRUE(screen.contains(place.adjusted(0, 0, 352, 0))) << screen.width();
        EXPECT_EQ(place.width(), 838);
    }
    EXPECT_EQ(firstPlace({838, 831}, 352, {100, 0, 1024, 600}).x(), 100);
    EXPECT_TRUE(QRect(0, 0, 640, 480).contains(firstPlace({838, 831}, 352, {0, 0, 640, 480})));
}

} // namespace
} // namespace velmarin::test
