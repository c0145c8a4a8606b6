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
        const char* path;
        const char* why; ///< empty for a success
        bool reported;
    } steps[] = {
        {"/G/P", "denied", true},    {"/G/P", "denied", false},
        {"/H/P", "denied", false}, // the same reason
        {"/H/P", "full", false},   // the same file
        {"/I/P", "too large", true}, {"/G/P", "", false},
        {"/G/P", "denied", true}, // it could be written in between
        {nullptr, "", false},     // forgetFailures
        {"/G/P", "denied", true},
    };
    Preferences preferences;
    for (const auto& step : steps) {
        preferences.reported.clear();
        if (step.path == nullptr) {
            preferences.writer.forgetFailures();
            continue;
        }
        const std::string why = step.why;
        const Failure failure{FolderItem(step.path), "it could not be written: " + why};
        preferences.writer.note(step.path, why.empty() ? Result() : Result(failure));
        EXPECT_EQ(preferences.reported.size(), step.reported ? 1U : 0U) << step.path << ' ' << why;
    }
}

TEST(PreferenceWriter, WritesTheLinesOfTheOrderEditorForEveryGroup) {
    Preferences preferences;
    GroupModel none;
    preferences.writer.writeGroup(none, true);
    for (const char* group : {"G", "H"}) {
        GroupModel shown;
        shown.pDictionaryGroupFolder = FolderItem(preferences.files.path() / group);
        preferences.writer.writeGroup(shown, true);
        EXPECT_FALSE(std::filesystem::exists(preferences.files.path() / group)) << "its folder is gone";
        shown.pDictionaryGroupFolder.CreateAsFolder();
        shown.pDicGroupName = "Title";
        preferences.writer.writeGroup(shown, true);
        const auto file = std::filesystem::path(group) / "DictionaryPreferences.txt";
        EXPECT_EQ(preferences.files.read(file), preferences.newDicPref.empty() ? "Title\t1\t\n" : "New\nB\nA\n");
        preferences.newDicPref = {"New", "B", "A"};
    }
    EXPECT_TRUE(preferences.reported.empty());
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
    const struct {
        std::string saved;
        QRect place; ///< of the content; a null position for any that shows the whole window
    } cases[] = {
        {"40\t50\t600\t450\t\n", {40, 50, 600, 450}},
        {"40\t50\t600\n", {40, 50, 600, 64}},
        {"\n", {0, 0, 64, 64}},
        {"-20\t30\t600\t450\t\n", {-20, 30, 600, 450}},
        {"3000\t1500\t600\t450\t\n", {0, 0, 600, 450}},
        {"99999999\t-99999999\t300\t200\t\n", {0, 0, 300, 200}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.saved);
        Preferences preferences;
        preferences.files.write("MainWindow", c.saved);
        PlacedWindow window(preferences);
        EXPECT_EQ(window.centralWidget()->size(), c.place.size());
        if (c.place.topLeft().isNull())
            EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
        else
            EXPECT_EQ(window.pos(), c.place.topLeft());
    }
}

TEST(Placement, IsSavedOnceTheUserMovesTheWindow) {
    Preferences preferences;
    const std::string saved = "3000\t1500\t600\t450\t\n";
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
    EXPECT_EQ(file(), "20\t30\t600\t450\t\n");
    window.move(broughtTo);
    EXPECT_NE(file(), "20\t30\t600\t450\t\n") << "a move back is a move too";

    std::filesystem::remove(preferences.files.path() / "MainWindow");
    preferences.files.write("MainWindow/file", "in the way");
    window.move(25, 35);
    window.move(26, 36);
    EXPECT_EQ(preferences.reported.size(), 1U);
    EXPECT_EQ(PlacedWindow(preferences).pos(), QPoint(26, 36)) << "what could not be saved lasts for the run";
}

} // namespace
} // namespace velmarin::test
