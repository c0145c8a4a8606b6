#include "ModelFixture.h"

#include "text/NilObjectException.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::kAmorBlock;
using test::ModelFixture;

class Model : public testing::Test, public ModelFixture {};
using Finding = Model;
using LookUp = Model;
using Synchronizing = Model;
using UserDictionaries = Model;
using Settings = Model;

std::string wordsBlock(const std::string& answer) {
    return "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n" + answer + "\n\n";
}
constexpr const char* kUserBlock = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\namor\n\nlove\n\n";
constexpr const char* kSorryBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nSorry no result for xqz !\n\n";

TEST_F(Finding, StepsFromHitToHit) {
    open().setHitColor({1, 2, 3});
    const struct {
        const char* name;
        void (*before)(ModelFixture&);
        int start; ///< of the selection; -1: a miss
        int nextStart;
    } steps[] = {
        {"First", [](ModelFixture& f) { f.model->FindEF_TextChange("ABA"); }, 0, 4},
        {"Second", nullptr, 4, 8},
        {"EndIsAMiss", nullptr, -1, 0},
        {"FromTheTop", nullptr, 0, 4},
        {"SameWordGoesOn", [](ModelFixture& f) { f.model->FindEF_TextChange("ABA"); }, 4, 8},
        {"ShorterText", [](ModelFixture& f) { f.text.text = "aba"; }, -1, 0},
        {"ShorterTextFromTheTop", nullptr, 0, 4},
        {"OtherWordFromTheTop", [](ModelFixture& f) { f.model->FindEF_TextChange("a"); }, 0, 2},
        {"Cleared", [](ModelFixture& f) { f.model->FindClBV_Action(); }, -1, 0},
    };
    text.text = "aba aba";
    for (const auto& step : steps) {
        SCOPED_TRACE(step.name);
        if (step.before != nullptr)
            step.before(*this);
        text.color = {};
        const std::size_t scrolls = text.scrolledTo.size();
        model->FindBV_Action();
        EXPECT_EQ(model->pFindStartPosition(), step.nextStart);
        EXPECT_EQ(display.missed, step.start == -1);
        if (step.start == -1)
            continue;
        EXPECT_EQ(text.start, step.start);
        EXPECT_EQ(text.start + text.length + 1, step.nextStart);
        EXPECT_EQ(text.color, (TextColor{1, 2, 3}));
        EXPECT_EQ(text.scrolledTo.size(), scrolls + 1);
        EXPECT_EQ(text.scrolledTo.back(), step.start + 1) << "the line of the second character";
    }
}

TEST_F(Finding, AnotherWordOrNoneIsNoMissYet) {
    open();
    for (const bool cleared : {false, true}) {
        ask("x");
        EXPECT_TRUE(display.missed);
        display.word = "x";
        cleared ? model->FindClBV_Action() : model->FindEF_TextChange("y");
        EXPECT_FALSE(display.missed);
        EXPECT_EQ(display.word, cleared ? "" : "x");
        EXPECT_EQ(model->pFindStartPosition(), cleared ? 0 : -1);
    }
}

TEST(LookUpSources, WriteInTheirOrder) {
    const struct {
        const char* name;
        std::vector<bool> on;
        std::string word;
        std::string text;
        bool keepsText = false;
    } cases[] = {
        {"None", {false, false, false}, "amor", ""},
        {"NoneKeepsTheText", {false, false, false}, "amor", "before after", true},
        {"Service", {true, false, false}, "amor", kAmorBlock},
        {"ServiceAtTheEnd", {true, false, false}, "amor", std::string("before after") + kAmorBlock, true},
        {"ServiceWithoutAnAnswer", {true, false, false}, "xqz", kSorryBlock},
        {"Latin", {false, true, false}, "amor", wordsBlock("1:amor\n")},
        {"LatinAtTheEnd", {false, true, false}, "x", "before after" + wordsBlock("1:x\n"), true},
        {"LatinWordsInOneArgument", {false, true, false}, "amo amās", wordsBlock("1:amo amās\n")},
        {"LatinQuotesAreLeftToTheShell", {false, true, false}, "a' 'b", wordsBlock("2:a\n")},
        {"LatinUnendedQuoteIsNoAnswer", {false, true, false}, "d'amor", ""},
        {"LatinSilenceIsAnAnswer", {false, true, false}, "silence", wordsBlock("")},
        {"LatinFails", {false, true, false}, "fail", ""},
        {"User", {false, false, true}, "amor", kUserBlock},
        {"UserAtTheSelection", {false, false, true}, "amor", std::string("before") + kUserBlock + "after", true},
        {"UserWithoutAHit", {false, false, true}, "xqz", ""},
        {"All", {true, true, true}, "amor", std::string(kAmorBlock) + wordsBlock("1:amor\n") + kUserBlock},
        {"EmptyWordLeavesAll", {true, true, true}, "", "before after"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ModelFixture fixture;
        fixture.installWords("[ \"$1\" = fail ] && exit 1; [ \"$1\" = silence ] || echo \"$#:$1\"");
        fixture.addUserDictionary("Mine", "amor\tlove\n");
        fixture.openForLookUp(each.on).setDontClearCB(each.keepsText);
        fixture.text.text = "before after";
        fixture.text.select(6, 1);
        fixture.text.color = {255, 0, 0};
        fixture.host.onYield = [&] { EXPECT_TRUE(fixture.busy.busy()); };
        fixture.ask(each.word);
        EXPECT_EQ(fixture.text.text, each.text);
        EXPECT_FALSE(fixture.busy.busy());
        if (!each.word.empty()) {
            ASSERT_FALSE(fixture.text.scrolledTo.empty());
            EXPECT_EQ(fixture.text.scrolledTo.back(), each.keepsText ? 12 : 0) << "to the start of the answers";
        }
        if (each.on[test::Service] && !fixture.text.inserted.empty()) {
            EXPECT_EQ(fixture.text.inserted[0].substr(0, 6), "0,0,0/") << "a painted hit does not color the answer";
        }
    }
}

TEST_F(LookUp, ScrollsToEachAnswerAndThenToTheFirst) {
    installWords("echo");
    openForLookUp({true, true, false});
    ask("amor");
    const int end = static_cast<int>(std::string(kAmorBlock).size());
    EXPECT_EQ(text.scrolledTo, (std::vector<int>{0, end, 0}));
}

TEST_F(LookUp, OfTheServiceIsWrittenAtTheEndOfWhatTheUserTypedMeanwhile) {
    openForLookUp();
    host.onYield = [&] { text.text = "xy"; };
    ask("amor");
    EXPECT_EQ(text.text, std::string("xy") + kAmorBlock);
}

TEST_F(LookUp, ShowsUserHitsInTheirStyles) {
    addUserDictionary("Mine", "amo__NUM__2\tto__BR__love\tnever shown\na__BR__b\nAMO\tx\n");
    openForLookUp({false, false, true});
    text.bold = true;
    ask("amo");
    const std::string banner = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\n";
    EXPECT_EQ(text.inserted, (std::vector<std::string>{"64,128,0/12.7/bold:" + banner, "0,0,128/18.7/bold:amo²\n\n",
                                                       "0,0,0/12.0/plain:to\nlove\n\n", "64,128,0/12.0/plain:" + banner,
                                                       "0,0,128/18.0/bold:AMO\n\n", "0,0,0/12.0/plain:x\n\n"}));
    ask("a__BR__b");
    EXPECT_EQ(text.text, banner + "a\nb\n\n\n\n");
}

TEST_F(LookUp, WithTheOptionKeySearchesTheMainWindowFirst) {
    openForLookUp();
    host.option.held = true;
    main.onSearchAll = [&] {
        EXPECT_TRUE(busy.busy());
        EXPECT_EQ(text.text, "") << "the answers come later";
        main.onSearchAll = nullptr;
    };
    ask("amor");
    EXPECT_EQ(main.log, (std::vector<std::string>{"text amor", "search amor"}));
    EXPECT_EQ(text.text, kAmorBlock);

    main.log.clear();
    ask("");
    EXPECT_EQ(main.log, (std::vector<std::string>{"text ", "search "}));
    EXPECT_EQ(text.text, kAmorBlock);

    model->setTarget(FindTarget::Find);
    main.log.clear();
    ask("love");
    EXPECT_TRUE(main.log.empty());
}

TEST_F(LookUp, WaitsOnceWhileSomethingElseRuns) {
    openForLookUp();
    {
        const Busy guard(busy);
        ask("xqz");
        ask("amor");
        EXPECT_EQ(text.text, "");
    }
    EXPECT_EQ(posted.size(), 1U);
    runPosted();
    EXPECT_EQ(text.text, kAmorBlock);
    model->setTarget(FindTarget::Find);
    const Busy guard(busy);
    ask("love");
    EXPECT_EQ(text.length, 4) << "finding does not wait";
}

TEST_F(LookUp, ThatWaitsIsDroppedWithItsWindow) {
    for (const bool destroyed : {false, true}) {
        openForLookUp();
        {
            const Busy guard(busy);
            ask("amor");
            destroyed ? model.reset() : model->close(352);
        }
        runPosted();
        EXPECT_EQ(text.text, "");
    }
}

TEST(SynchronizedLookUp, ShowsItsTargetAndLeavesTheSetting) {
    for (const FindTarget target : {FindTarget::Find, FindTarget::DicApp})
        for (const bool fails : {false, true}) {
            ModelFixture fixture;
            fs::create_directories(fixture.groupFolder.path() / "UserDictionaries/WithoutIndex");
            SideModel& model = fixture.openForLookUp({true, false, fails});
            model.setTarget(target);
            model.synchronise("amor");
            EXPECT_EQ(fixture.text.text, "") << "it is off";
            model.setSyncronizeCB(true);
            fixture.display.targets.clear();
            bool keptMeanwhile = true;
            fixture.host.onYield = [&] {
                keptMeanwhile = keptMeanwhile && model.settings().target == target &&
                                fixture.display.targets == std::vector{FindTarget::DicApp};
                fixture.model->setTarget(target == FindTarget::Find ? FindTarget::DicApp : FindTarget::Find);
                fixture.host.onYield = nullptr;
            };
            if (fails)
                EXPECT_THROW(model.synchronise("amor"), NilObjectException);
            else
                model.synchronise("amor");
            EXPECT_TRUE(keptMeanwhile);
            EXPECT_EQ(fixture.text.text, kAmorBlock);
            EXPECT_EQ(fixture.display.word, "amor");
            EXPECT_EQ(fixture.display.targets.back(), target);
            EXPECT_EQ(model.settings().target, target);
            EXPECT_FALSE(fixture.busy.busy());
        }
}

TEST_F(Synchronizing, WaitsForWhatRunsAndThenFindsFromTheTop) {
    open().setSyncronizeCB(true);
    host.option.held = true;
    {
        const Busy guard(busy);
        model->synchronise("xqz");
        model->synchronise("amor");
        EXPECT_EQ(display.word, "");
    }
    runPosted();
    EXPECT_EQ(text.text, kAmorBlock);
    EXPECT_TRUE(main.log.empty()) << "it does not go back to the main window";
    model->FindEF_TextChange("amor"); // what the entry reports when the word is shown in it
    EXPECT_EQ(model->pFindStartPosition(), -1);
    EXPECT_FALSE(display.missed);
}

TEST_F(Synchronizing, ReturnMeanwhileIsALookUpThatWaits) {
    openForLookUp().setTarget(FindTarget::Find);
    model->setSyncronizeCB(true);
    host.onYield = [&] {
        host.onYield = nullptr;
        model->FindBV_Action();
        EXPECT_FALSE(display.missed) << "the find bar shows that it looks up";
    };
    model->synchronise("amor");
    EXPECT_EQ(text.text, kAmorBlock);
    EXPECT_EQ(posted.size(), 1U);
}

TEST(TickingLatin, TriesTheProgram) {
    const struct {
        const char* name;
        const char* program; ///< nullptr: it is not installed
        bool staysOn;
    } cases[] = {{"Answers", "echo $# arguments", true},
                 {"Fails", "echo $# arguments; exit 1", false},
                 {"IsMissing", nullptr, false},
                 {"IsEndless", "yes", false}};
    const std::vector<std::string> question{
        "To use this function, you have to install Words made by Mr. Ansel Corrigan. Do you want to go to his home "
        "page ?\r"};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ModelFixture fixture;
        if (each.program != nullptr)
            fixture.installWords(each.program);
        SideModel& model = fixture.open();
        fixture.text.text = "kept\n";
        {
            const Busy guard(fixture.busy);
            fixture.display.sourcesOn[test::Latin] = true; // as the click leaves the check box
            model.setSource(test::Latin, true);
            EXPECT_FALSE(fs::exists(fixture.preferences.path() / "temp.sh")) << "it waits";
        }
        fixture.runPosted();
        EXPECT_EQ(fixture.display.sourcesOn[test::Latin], each.staysOn);
        EXPECT_EQ(model.settings().sourcesOn[test::Latin], each.staysOn);
        EXPECT_EQ(fixture.host.questions, each.staysOn ? std::vector<std::string>() : question);
        EXPECT_EQ(fixture.text.text, each.staysOn ? "kept\n" + wordsBlock("0 arguments\n") : "kept\n");
        EXPECT_EQ(fixture.preferences.read("temp.sh"),
                  "cd " + fixture.words.path().string() + "/\n" + fixture.words.path().string() + "/words");

        fs::remove(fixture.preferences.path() / "temp.sh");
        model.setSource(test::Latin, false);
        EXPECT_FALSE(fs::exists(fixture.preferences.path() / "temp.sh")) << "clearing the box tries nothing";
    }
}

TEST_F(LookUp, InWordsRaisesIfTheScriptCannotBeWritten) {
    openForLookUp({false, true, false});
    fs::remove_all(preferences.path());
    EXPECT_THROW(ask("amor"), NilObjectException);
    EXPECT_FALSE(busy.busy());
}

/// WORDS hangs, asked with a word or tried without one.
TEST(HangingLatin, IsStoppedSilently) {
    enum class By { User, EndOfTheRun, Close };
    for (const bool withWord : {true, false})
        for (const By by : {By::User, By::EndOfTheRun, By::Close}) {
            SCOPED_TRACE(testing::Message() << withWord << " " << static_cast<int>(by));
            ModelFixture fixture;
            fixture.installWords("sleep 1000");
            SideModel& model = fixture.openForLookUp({false, withWord, withWord});
            fixture.addUserDictionary("Mine", "amor\tlove\n");
            fixture.now += std::chrono::hours(1);
            std::vector<bool> shown;
            bool closed = false;
            fixture.host.onYield = [&] {
                EXPECT_TRUE(fixture.busy.busy());
                shown.push_back(fixture.display.waits);
                fixture.now += std::chrono::milliseconds(250);
                if (!fixture.display.waits)
                    return;
                if (by == By::User)
                    model.stopWaiting();
                else if (by == By::EndOfTheRun)
                    fixture.busy.whenStopped([&] { closed = true; });
                else
                    model.close(352);
                EXPECT_EQ(fixture.display.released, 0) << "it still runs";
            };
            if (withWord)
                fixture.ask("amor");
            else
                model.setSource(test::Latin, true);
            EXPECT_EQ(shown, (std::vector<bool>{false, false, true}));
            EXPECT_FALSE(fixture.display.waits);
            EXPECT_TRUE(fixture.host.questions.empty());
            EXPECT_EQ(fixture.text.text, "");
            EXPECT_EQ(fixture.display.released, by == By::Close ? 1 : 0);
            EXPECT_EQ(fs::exists(fixture.groupFolder.path() / "Subwindow"), true);
            if (by != By::Close) {
                EXPECT_EQ(model.settings().sourcesOn[test::Latin], withWord);
            }
            fixture.runPosted();
            EXPECT_EQ(closed, by == By::EndOfTheRun);
        }
}

TEST_F(UserDictionaries, AreTheVisibleFoldersAndLinksToFolders) {
    const fs::path folder = groupFolder.path() / "UserDictionaries";
    for (const char* name : {"b", "A", ".hidden"})
        fs::create_directories(folder / name);
    groupFolder.write("UserDictionaries/file", "");
    fs::create_directories(words.path() / "Elsewhere");
    fs::create_directory_symlink(words.path() / "Elsewhere", folder / "link");
    fs::create_symlink("/no/such/folder", folder / "dead");
    open().mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries.size(), 0U) << "they are off";
    model->setSource(test::User, true);
    bool busyThroughout = true;
    host.onYield = [&] { busyThroughout = busyThroughout && busy.busy(); };
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries, (std::vector<std::string>{"A", "b", "Elsewhere"}));
    EXPECT_TRUE(busyThroughout);
    EXPECT_GE(host.yields, 5) << "after each item";

    const auto choose = [&](int row) {
        model->setUserDictionary(row);
        model->mMakeUserDicPU();
        EXPECT_EQ(display.userDictionary, *model->settings().userDicRow);
        return display.userDictionary;
    };
    EXPECT_EQ(choose(1), 1);
    fs::create_directory(folder / "AA");
    EXPECT_EQ(choose(1), 1) << "the number stays, not the name";
    EXPECT_EQ(choose(3), 3);
    fs::remove(folder / "AA");
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionary, -1);
    fs::create_directory(folder / "AA");
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionary, -1) << "a row that is gone is forgotten";
    fs::remove_all(folder);
    model->mMakeUserDicPU();
    EXPECT_EQ(display.userDictionaries.size(), 4U) << "without the folder the list stays";
}

TEST_F(Settings, OfAGroupWithoutAFileAreNotShown) {
    EXPECT_EQ(open().settings().sourcesOn, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(model->settings().target, FindTarget::Find);
    EXPECT_EQ(model->settings().width, 352);
    EXPECT_FALSE(display.settings.has_value());
    EXPECT_FALSE(display.textStyleApplied);
}

TEST(SavedSettings, AreShown) {
    const struct {
        const char* name;
        const char* file;
        int width;
        int row;
    } cases[] = {{"Whole", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n1\n", 360, 1},
                 {"UserDictionariesOff", "360\n0\n1\nTrue\nFalse\nDicApp\nTrue\nFalse\nFalse\n1\n", 360, -1},
                 {"MissingRow", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nTrue\nTrue\n7\n", 360, -1},
                 {"NegativeRow", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n-1\n", 360, -1},
                 {"NoRow", "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n", 360, -1},
                 {"TooNarrow", "5\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 350, 0},
                 {"TooWide", "32001\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n", 32000, 0},
                 {"EmptyFile", "", 350, -1}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ModelFixture fixture;
        fixture.addUserDictionary("A", "a\n");
        fixture.addUserDictionary("B", "b\n");
        fixture.groupFolder.write("Subwindow", each.file);
        fixture.installWords("echo");
        SideModel& model = fixture.open();
        SubwindowSettings expected = parseSubwindow(each.file);
        expected.width = each.width;
        ASSERT_TRUE(fixture.display.settings.has_value());
        EXPECT_EQ(*fixture.display.settings, expected);
        EXPECT_EQ(fixture.display.targets, std::vector{expected.target});
        EXPECT_EQ(fixture.display.userDictionary, each.row);
        expected.userDicRow = each.row;
        EXPECT_EQ(model.settings(), expected);
        EXPECT_TRUE(fixture.display.textStyleApplied);
        EXPECT_FALSE(fs::exists(fixture.preferences.path() / "temp.sh")) << "restoring runs nothing";
    }
}

TEST_F(Settings, AreWrittenToTheGroupOfTheOpening) {
    addUserDictionary("A", "a\n");
    open().mMakeUserDicPU();
    main.group = FolderItem();
    model->setSource(test::User, true);
    model->setSource(test::Service, false);
    model->mMakeUserDicPU();
    model->setUserDictionary(0);
    model->setTarget(FindTarget::DicApp);
    model->setSyncronizeCB(true);
    model->setFontRow(7);
    model->setSizeRow(3);
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow"), "400\n7\n3\nFalse\nFalse\nDicApp\nTrue\nFalse\nTrue\n0\n");
    EXPECT_EQ(display.released, 1);
    groupFolder.write("Subwindow", "");
    model->close(400);
    EXPECT_EQ(groupFolder.read("Subwindow"), "");
    EXPECT_EQ(display.released, 1);
}

TEST(SettingsThatCannotBeWritten, AreALossOnlyAfterAChange) {
    for (const bool changed : {false, true}) {
        ModelFixture fixture;
        fs::create_directory(fixture.groupFolder.path() / "Subwindow");
        fixture.open().setDontClearCB(changed);
        fixture.model->close(352);
        EXPECT_EQ(fixture.main.notWritten.size(), changed ? 1U : 0U);
    }
}

TEST_F(Settings, AreLeftAloneIfTheWindowIsClosedWhileItReadsThem) {
    addUserDictionary("A", "a\n");
    const std::string saved = "360\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nTrue\n0\n";
    groupFolder.write("Subwindow", saved);
    host.onYield = [&] { model->close(352); };
    open();
    EXPECT_EQ(groupFolder.read("Subwindow"), saved);
    EXPECT_EQ(display.released, 1);
}

} // namespace
} // namespace velmarin
