#include "SideFixture.h"
#include "side/FindInText.h"
#include "side/SubwindowFile.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::ModelFixture;

class Model : public testing::Test, public ModelFixture {};

TEST_F(Model, FindsFromHitToHit) {
    open().setHitColor({1, 2, 3});
    const struct {
        const char* typed; ///< nullptr: the word stays; empty: it is cleared
        const char* text;
        int start; ///< where the find begins, see pFindStartPosition
        int hit;   ///< from 1; 0: a miss
    } steps[] = {{"ABA", "aba aba", -1, 1},  {nullptr, "aba aba", 4, 5}, {nullptr, "aba aba", 8, 0},
                 {nullptr, "aba aba", 0, 1}, {"ABA", "aba aba", 4, 5},   {nullptr, "aba", 8, 0},
                 {"a", "aba", -1, 1},        {"", "aba", 0, 0}};
    for (const auto& step : steps) {
        SCOPED_TRACE(&step - steps);
        text.text = step.text;
        text.color = {};
        if (step.typed != nullptr) {
            display.word = "shown";
            *step.typed == '\0' ? model->FindClBV_Action() : model->FindEF_TextChange(step.typed);
            EXPECT_EQ(display.word, *step.typed == '\0' ? "" : "shown");
            EXPECT_FALSE(display.missed && step.start != 4) << "another word is no miss yet";
        }
        EXPECT_EQ(model->pFindStartPosition(), step.start);
        model->FindBV_Action();
        EXPECT_EQ(display.missed, step.hit == 0);
        if (step.hit == 0)
            continue;
        EXPECT_EQ(text.start, step.hit - 1);
        EXPECT_EQ(text.color, (TextColor{1, 2, 3}));
        EXPECT_EQ(text.scrolledTo.back(), step.hit) << "the line of the second character";
    }
}

TEST(FindIgnoringCase, ComparesCharacters) {
    const struct {
        int start;
        std::u16string_view text, find;
        int position;
    } cases[] = {{1, u"aaab", u"aab", 2}, {1, u"l'éTÉ", u"Été", 3}, {1, u"λόγοσ", u"ΟΣ", 4}, {1, u"aba", u"", 0}};
    for (const auto& each : cases)
        EXPECT_EQ(findIgnoringCase(each.start, each.text, each.find), each.position);
}

TEST_F(Model, ListsTheVisibleFoldersAndLinksToFolders) {
    const fs::path folder = groupFolder.at("UserDictionaries");
    for (const fs::path& made : {folder / "b", folder / "A", folder / ".hidden", words.at("Elsewhere")})
        fs::create_directories(made);
    groupFolder.write("UserDictionaries/file", "");
    groupFolder.link("UserDictionaries/link", words.at("Elsewhere"));
    groupFolder.link("UserDictionaries/dead", "/no/such/folder");
    open().mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries.size(), 0U) << "they are off";
    model->setSource(test::User, true);
    host.onYield = [&] { EXPECT_TRUE(busy.busy()); };
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries, (std::vector<std::string>{"A", "b", "Elsewhere"}));
    EXPECT_GE(host.yields, 5) << "after each item";

    model->setUserDictionary(2);
    // The number stays, not the name, and a row that was gone is forgotten.
    for (const auto& [hasB, row] : {std::pair{true, 2}, std::pair{false, -1}, std::pair{true, -1}}) {
        hasB ? fs::create_directory(folder / "b") : fs::remove(folder / "b");
        model->mMakeUserDicPU();
        EXPECT_EQ(display.userDictionary, row);
        EXPECT_EQ(model->settings().userDicRow, row);
    }
    fs::remove_all(folder);
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries.size(), 3U) << "without the folder the list stays";
}

TEST(SavedSettings, AreShown) {
    const struct {
        const char* file;    ///< nullptr: there is none
        const char* meaning; ///< as it would be written
        bool listed;         ///< the user dictionaries, which are "A" and "B"
    } cases[] = {{nullptr, "352\n0\n0\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                 {"400\r7\r3\rfalse\rTRUE\rdicapp\rTrue\rFALSE\rTrUe\r1",
                  "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n1\n", true},
                 {"360\n0\n1\nTrue\nTrue\nDicApp\nTrue\nFalse\nFalse\n1\n",
                  "360\n0\n1\nTrue\nTrue\nDicApp\nTrue\nFalse\nFalse\n-1\n", false},
                 {"5\n0\n1\nTrue\nFalse\nFind\nFalse\nTrue\nTrue\n2\n",
                  "350\n0\n1\nTrue\nFalse\nFind\nFalse\nTrue\nTrue\n-1\n", true},
                 {"32001\n0\n1\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n\n",
                  "32000\n0\n1\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n-1\n", false},
                 {"", "350\n0\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                 {"wide\n99999999999\n-2.9\n1\nyes\nService\nT\n \nTrue\n0.7\n",
                  "350\n2147483647\n-2\nFalse\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", true}};
    for (const auto& each : cases) {
        const bool hasFile = each.file != nullptr;
        SCOPED_TRACE(hasFile ? each.file : "no file");
        ModelFixture fixture;
        fixture.addUserDictionary("A", "a\n");
        fixture.addUserDictionary("B", "b\n");
        if (hasFile)
            fixture.groupFolder.write("Subwindow", each.file);
        const SubwindowSettings settings = fixture.open().settings();
        EXPECT_EQ(subwindowText(settings), each.meaning);
        EXPECT_EQ(fixture.display.userDictionary, settings.userDicRow);
        EXPECT_EQ(fixture.display.userDictionaries.size(), each.listed ? 2U : 0U);
        EXPECT_EQ(fixture.display.settings.has_value(), hasFile);
        EXPECT_EQ(fixture.display.targets.size(), hasFile ? 1U : 0U);
        EXPECT_EQ(fixture.display.textStyleApplied, hasFile);
        EXPECT_FALSE(fs::exists(fixture.preferences.at("temp.sh"))) << "restoring runs nothing";
        EXPECT_EQ(fixture.display.settings.value_or(settings).sourcesOn, settings.sourcesOn);
    }
}

TEST_F(Model, SavesOnceInTheGroupOfTheOpening) {
    open().setSource(test::Service, false);
    main.group = FolderItem();
    model->setFontRow(7);
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow"), "400\n7\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
    model->setFontRow(8);
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow").substr(4, 1), "7");
    EXPECT_EQ(display.released, 1);
}

TEST_F(Model, ClosedWhileItReadsItsSettingsLeavesThemAlone) {
    addUserDictionary("A", "a\n");
    const std::string saved = "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n";
    groupFolder.write("Subwindow", saved);
    host.onYield = [&] { model->close(352); };
    open();
    EXPECT_EQ(groupFolder.read("Subwindow"), saved);
    EXPECT_EQ(display.released, 1);
}

TEST_F(Model, SettingsThatCannotBeReadAreToldAndStay) {
    groupFolder.unreadable("Subwindow");
    open().setFontRow(7);
    model->close(400);
    EXPECT_TRUE(fs::is_symlink(groupFolder.at("Subwindow")));
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_NE(host.messages[0].find("/Subwindow\" could not be read: Input/output error"), std::string::npos);
}

} // namespace
} // namespace velmarin
