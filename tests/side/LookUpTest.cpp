#include "ModelFixture.h"

#include "text/NilObjectException.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::kAmorBlock;
using test::ModelFixture;

class LookUp : public testing::Test, public ModelFixture {};

std::string wordsBlock(const std::string& answer) {
    return "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n" + answer + "\n\n";
}
constexpr const char* kUserBlock = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\namor\n\nlove\n\n";
constexpr const char* kSorryBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nSorry no result for xqz !\n\n";

TEST(LookUpSources, WriteInTheirOrder) {
    const struct {
        const char* name;
        const char* sources;
        std::string word;
        std::string text; ///< after a look-up that begins with "before after", " " selected
        bool keepsText = false;
    } cases[] = {
        {"None", "", "amor", ""},
        {"NoneKeepsTheText", "", "amor", "before after", true},
        {"Service", "S", "amor", kAmorBlock},
        {"ServiceAtTheEnd", "S", "amor", std::string("before after") + kAmorBlock, true},
        {"ServiceWithoutAnAnswer", "S", "xqz", kSorryBlock},
        {"Latin", "L", "amor", wordsBlock("1:amor\n")},
        {"LatinAtTheEnd", "L", "x", "before after" + wordsBlock("1:x\n"), true},
        {"LatinWordsInOneArgument", "L", "amo amās", wordsBlock("1:amo amās\n")},
        {"LatinQuotesAreLeftToTheShell", "L", "a' 'b", wordsBlock("2:a\n")},
        {"LatinUnendedQuoteIsNoAnswer", "L", "d'amor", ""},
        {"LatinSilenceIsAnAnswer", "L", "silence", wordsBlock("")},
        {"LatinFails", "L", "fail", ""},
        {"User", "U", "amor", kUserBlock},
        {"UserAtTheSelection", "U", "amor", std::string("before") + kUserBlock + "after", true},
        {"UserWithoutAHit", "U", "xqz", ""},
        {"All", "SLU", "amor", std::string(kAmorBlock) + wordsBlock("1:amor\n") + kUserBlock},
        {"EmptyWordLeavesAll", "SLU", "", "before after"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ModelFixture fixture;
        fixture.installWords("[ \"$1\" = fail ] && exit 1; [ \"$1\" = silence ] || echo \"$#:$1\"");
        fixture.addUserDictionary("Mine", "amor\tlove\n");
        fixture.openForLookUp(each.sources).setDontClearCB(each.keepsText);
        fixture.text.text = "before after";
        fixture.text.select(6, 1);
        fixture.text.color = {255, 0, 0};
        fixture.host.onYield = [&] { EXPECT_TRUE(fixture.busy.busy()); };
        fixture.ask(each.word);
        EXPECT_EQ(fixture.text.text, each.text);
        EXPECT_FALSE(fixture.busy.busy());
        if (each.word.empty())
            continue;
        EXPECT_EQ(fixture.text.scrolledTo.back(), each.keepsText ? 12 : 0) << "to the start of the answers";
        if (*each.sources == 'S') {
            EXPECT_EQ(fixture.text.color, TextColor()) << "a painted hit does not color the answer";
        }
    }
}

TEST_F(LookUp, ScrollsToEachAnswerAndThenToTheFirst) {
    installWords("echo");
    openForLookUp("SL");
    ask("amor");
    EXPECT_EQ(text.scrolledTo, (std::vector<int>{0, static_cast<int>(std::string(kAmorBlock).size()), 0}));
}

TEST_F(LookUp, OfTheServiceIsWrittenAtTheEndOfWhatTheUserTypedMeanwhile) {
    openForLookUp();
    host.onYield = [&] { text.text = "xy"; };
    ask("amor");
    EXPECT_EQ(text.text, std::string("xy") + kAmorBlock);
}

TEST_F(LookUp, ShowsUserHitsInTheirStyles) {
    addUserDictionary("Mine", "amo__NUM__2\tto__BR__love\tnever shown\na__BR__b\nAMO\tx\n");
    openForLookUp("U");
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
        main.log.push_back(text.text);
    };
    for (const std::string word : {"amor", ""}) {
        text.text = "before";
        main.log.clear();
        ask(word);
        EXPECT_EQ(main.log, (std::vector<std::string>{"text " + word, "search " + word, "before"}));
        EXPECT_EQ(text.text, word.empty() ? "before" : kAmorBlock);
    }
    model->setTarget(FindTarget::Find);
    main.log.clear();
    ask("before");
    EXPECT_TRUE(main.log.empty());
}

TEST_F(LookUp, WaitsOnceWhileSomethingElseRuns) {
    openForLookUp();
    {
        const Busy guard(busy);
        ask("xqz");
        ask("amor");
        EXPECT_EQ(text.text, "");
        model->setTarget(FindTarget::Find);
        text.text = "amor";
        ask("amor");
        EXPECT_EQ(text.length, 4) << "finding does not wait";
        model->setTarget(FindTarget::LookUp);
    }
    EXPECT_EQ(posted.size(), 1U);
    runPosted();
    EXPECT_EQ(text.text, kAmorBlock);
    {
        const Busy guard(busy);
        ask("xqz");
    }
    runPosted();
    EXPECT_EQ(text.text, kSorryBlock) << "the next one waits again";
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
    for (const FindTarget target : {FindTarget::Find, FindTarget::LookUp})
        for (const bool fails : {false, true}) {
            ModelFixture fixture;
            fs::create_directories(fixture.groupFolder.path() / "UserDictionaries/WithoutIndex");
            SideModel& model = fixture.openForLookUp(fails ? "SU" : "S");
            model.setTarget(target);
            model.synchronise("amor");
            EXPECT_EQ(fixture.text.text, "") << "it is off";
            model.setSyncronizeCB(true);
            fixture.display.targets.clear();
            bool keptMeanwhile = true;
            fixture.host.onYield = [&] {
                keptMeanwhile = keptMeanwhile && model.settings().target == target &&
                                fixture.display.targets == std::vector{FindTarget::LookUp};
                model.setTarget(target == FindTarget::Find ? FindTarget::LookUp : FindTarget::Find);
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

TEST_F(LookUp, SynchronizedWaitsAndStaysHere) {
    openForLookUp().setTarget(FindTarget::Find);
    model->setSyncronizeCB(true);
    host.option.held = true;
    {
        const Busy guard(busy);
        model->synchronise("xqz");
        model->synchronise("amor");
        EXPECT_EQ(display.word, "");
    }
    host.onYield = [&] {
        host.onYield = nullptr;
        model->FindBV_Action();
        EXPECT_FALSE(display.missed) << "while the find bar shows a look-up, Return is one, and waits";
    };
    runPosted();
    EXPECT_EQ(text.text, kAmorBlock);
    EXPECT_TRUE(main.log.empty()) << "it does not go back to the main window";
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

        fs::remove_all(fixture.preferences.path());
        model.setSource(test::Latin, false);
        EXPECT_THROW(model.setSource(test::Latin, true), NilObjectException) << "the script cannot be written";
        EXPECT_FALSE(fixture.busy.busy());
    }
}

/// WORDS hangs, asked with a word or tried without one.
TEST(HangingLatin, IsStoppedSilently) {
    enum class By { User, EndOfTheRun, Close };
    for (const bool withWord : {true, false})
        for (const By by : {By::User, By::EndOfTheRun, By::Close}) {
            SCOPED_TRACE(testing::Message() << withWord << " " << static_cast<int>(by));
            ModelFixture fixture;
            fixture.installWords("sleep 1000");
            fixture.addUserDictionary("Mine", "amor\tlove\n");
            SideModel& model = fixture.openForLookUp(withWord && by == By::Close ? "LU" : withWord ? "L" : "");
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
            for (int time = 1; time <= (by == By::User ? 2 : 1); ++time) {
                shown.clear();
                withWord ? fixture.ask("amor") : model.setSource(test::Latin, true);
                EXPECT_EQ(shown, (std::vector<bool>{false, false, true}));
            }
            EXPECT_FALSE(fixture.display.waits);
            EXPECT_TRUE(fixture.host.questions.empty());
            EXPECT_EQ(fixture.text.text, "") << "the next source is not asked";
            EXPECT_EQ(fixture.display.released, by == By::Close ? 1 : 0);
            EXPECT_EQ(model.settings().sourcesOn[test::Latin], withWord || by == By::Close);
            fixture.runPosted();
            EXPECT_EQ(closed, by == By::EndOfTheRun);
        }
}

} // namespace
} // namespace velmarin
