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

TEST(FindInText, IsFoundAt) {
    const struct {
        int start;
        std::u16string text;
        std::u16string word;
        int position;
    } cases[] = {{-1, u"aba aba", u"aba", 1}, {5, u"aba aba", u"ABA", 5},
                 {2, u"ABA aba", u"aBa", 5},  {6, u"aba aba", u"aba", 0},
                 {1, u"aaab", u"aab", 2},     {100, u"aba aba", u"aba", 0},
                 {1, u"l'éTÉ", u"Été", 3},    {1, u"λόγοσ", u"ΟΣ", 4},
                 {1, u"aba", u"", 0},         {1, u"a\U0001F600\U0001F601", u"\U0001F601", 4}};
    for (const auto& each : cases)
        EXPECT_EQ(findIgnoringCase(each.start, each.text, each.word), each.position)
            << testing::PrintToString(each.text) << each.start;
}

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
            *step.typed == '\0' ? model->FindClBV_Action() : model->FindEF_TextChange(step.typed);
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

    const auto rowAfterReading = [&] {
        model->mMakeUserDicPU();
        EXPECT_EQ(display.userDictionary, *model->settings().userDicRow);
        return display.userDictionary;
    };
    model->setUserDictionary(1);
    fs::create_directory(folder / "AA");
    EXPECT_EQ(rowAfterReading(), 1) << "the number stays, not the name";
    model->setUserDictionary(3);
    EXPECT_EQ(rowAfterReading(), 3);
    fs::remove(folder / "AA");
    EXPECT_EQ(rowAfterReading(), -1);
    fs::create_directory(folder / "AA");
    EXPECT_EQ(rowAfterReading(), -1) << "a row that was gone is forgotten";
    fs::remove_all(folder);
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries.size(), 4U) << "without the folder the list stays";
}

TEST(SavedSettings, AreShown) {
    const struct {
        const char* file; ///< nullptr: there is none
        int width;
        int row;
    } cases[] = {{nullptr, 352, -1},
                 {"360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n1\n", 360, 1},
                 {"360\n0\n1\nTrue\nTrue\nDicApp\nTrue\nFalse\nFalse\n1\n", 360, -1},
                 {"360\n0\n1\nTrue\nFalse\nFind\nFalse\nTrue\nTrue\n2\n", 360, -1},
                 {"5\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 350, 0},
                 {"32001\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n\n", 32000, -1}};
    for (const auto& each : cases) {
        const bool hasFile = each.file != nullptr;
        SCOPED_TRACE(hasFile ? each.file : "no file");
        ModelFixture fixture;
        fixture.addUserDictionary("A", "a\n");
        fixture.addUserDictionary("B", "b\n");
        if (hasFile)
            fixture.groupFolder.write("Subwindow", each.file);
        SubwindowSettings expected = hasFile ? parseSubwindow(each.file) : SubwindowSettings();
        expected.width = each.width;
        const SideModel& model = fixture.open();
        EXPECT_EQ(fixture.display.settings.has_value(), hasFile);
        EXPECT_EQ(fixture.display.settings.value_or(expected), expected);
        EXPECT_EQ(fixture.display.targets.size(), hasFile ? 1U : 0U);
        EXPECT_EQ(fixture.display.textStyleApplied, hasFile);
        EXPECT_EQ(fixture.display.userDictionary, each.row);
        expected.userDicRow = each.row;
        EXPECT_EQ(model.settings(), expected);
        EXPECT_FALSE(fs::exists(fixture.preferences.at("temp.sh"))) << "restoring runs nothing";
    }
}

TEST_F(Model, SavesOnceInTheGroupOfTheOpening) {
    open().setSource(test::Service, false);
    main.group = FolderItem();
    model->setTarget(FindTarget::DicApp);
    model->setSyncronizeCB(true);
    model->setFontRow(7);
    model->setSizeRow(3);
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow"), "400\n7\n3\nFalse\nFalse\nDicApp\nTrue\nFalse\nFalse\n-1\n");
    groupFolder.write("Subwindow", "");
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow"), "");
    EXPECT_EQ(display.released, 1);
}

TEST_F(Model, ReportsSettingsThatCannotBeWrittenIfTheyHaveChanged) {
    fs::create_directory(groupFolder.at("Subwindow"));
    for (const bool changed : {false, true}) {
        open().setDontClearCB(changed);
        model->close(352);
        EXPECT_EQ(main.notWritten.size(), changed ? 1U : 0U);
    }
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

TEST(SubwindowFile, IsReadAs) {
    const struct {
        const char* text;
        const char* meaning; ///< as it would be written
        bool hasRow;
    } cases[] = {{"400\r7\r3\rfalse\rTRUE\rdicapp\rTrue\rFALSE\rTrUe\r2",
                  "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n", true},
                 {"400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n\n",
                  "400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n-1\n", false},
                 {"400\n7\n", "400\n7\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                 {"", "0\n0\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                 {"wide\n99999999999\n-2.9\n1\nyes\nService\nT\n \n\n3.7\n",
                  "0\n2147483647\n-2\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n3\n", true}};
    for (const auto& each : cases) {
        const SubwindowSettings settings = parseSubwindow(each.text);
        EXPECT_EQ(subwindowText(settings), each.meaning);
        EXPECT_EQ(settings.userDicRow.has_value(), each.hasRow) << each.text;
    }
}

} // namespace
} // namespace velmarin
