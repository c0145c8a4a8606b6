#include "SideFixture.h"

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
        const char* sources;
        std::string word;
        std::string text; ///< after a look-up that begins with "before after", " " selected
        bool keepsText = false;
    } cases[] = {{"", "amor", "before after", true},
                 {"S", "amor", std::string("before after") + kAmorBlock, true},
                 {"S", "xqz", kSorryBlock},
                 {"L", "x", "before after" + wordsBlock("1:x\n"), true},
                 {"L", "amo amās", wordsBlock("1:amo amās\n")},
                 {"L", "a' 'b", wordsBlock("2:a\n")}, // quotes are left to the shell
                 {"L", "d'amor", ""},
                 {"L", "silence", wordsBlock("")},
                 {"L", "fail", ""},
                 {"U", "amor", std::string("before") + kUserBlock + "after", true},
                 {"U", "xqz", ""},
                 {"SLU", "amor", std::string(kAmorBlock) + wordsBlock("1:amor\n") + kUserBlock},
                 {"SLU", "", "before after"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.sources + (" " + each.word));
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

TEST_F(LookUp, AppendsToWhatTheUserTypedMeanwhileAndScrollsToEachAnswer) {
    installWords("echo");
    openForLookUp("SL");
    host.onYield = [&] {
        text.text = "xy";
        host.onYield = nullptr;
    };
    ask("amor");
    EXPECT_EQ(text.text, std::string("xy") + kAmorBlock + wordsBlock("\n"));
    EXPECT_EQ(text.scrolledTo, (std::vector<int>{2, static_cast<int>(std::string(kAmorBlock).size()) + 2, 0}));
}

TEST_F(LookUp, ShowsUserHitsInTheirStyles) {
    addUserDictionary("Mine", "amo__NUM__2\tto__BR__love\tnever shown\na__BR__b\nAMO\tx\n");
    openForLookUp("U");
    text.bold = true;
    ask("amo");
    const std::string banner = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\n";
    const TextColor green{64, 128, 0}, blue{0, 0, 128};
    EXPECT_TRUE(text.inserted == (decltype(text.inserted){{green, 12.7, true, banner},
                                                          {blue, 18.7, true, "amo²\n\n"},
                                                          {{}, 12, false, "to\nlove\n\n"},
                                                          {green, 12, false, banner},
                                                          {blue, 18, true, "AMO\n\n"},
                                                          {{}, 12, false, "x\n\n"}}));
    ask("a__BR__b");
    EXPECT_EQ(text.text, banner + "a\nb\n\n\n\n");
}

TEST_F(LookUp, WithTheOptionKeySearchesTheMainWindowFirst) {
    openForLookUp();
    host.option.held = true;
    main.onSearchAll = [&] { main.log.push_back(busy.busy() ? text.text : "not busy"); };
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
    enum class Window { Open, Closed, Destroyed };
    for (const Window then : {Window::Open, Window::Closed, Window::Destroyed}) {
        text.text.clear();
        {
            const Busy guard(busy);
            ask("xqz");
            if (then != Window::Open)
                then == Window::Closed ? model->close(352) : model.reset();
        }
        runPosted();
        EXPECT_EQ(text.text, then == Window::Open ? kSorryBlock : "") << "the next one waits, until its window goes";
        openForLookUp();
    }
}

TEST(SynchronizedLookUp, ShowsItsTargetAndLeavesTheSetting) {
    for (const bool fails : {false, true}) {
        ModelFixture fixture;
        fs::create_directories(fixture.groupFolder.at("UserDictionaries/WithoutIndex"));
        SideModel& model = fixture.openForLookUp(fails ? "SU" : "S");
        model.setTarget(FindTarget::Find);
        fixture.host.option.held = true;
        model.synchronise("amor");
        EXPECT_EQ(fixture.text.text, "") << "it is off";
        model.setSyncronizeCB(true);
        {
            const Busy guard(fixture.busy);
            model.synchronise("amor");
            EXPECT_EQ(fixture.display.word, "") << "it waits";
        }
        fixture.display.targets.clear();
        fixture.host.onYield = [&] {
            EXPECT_EQ(model.settings().target, FindTarget::Find);
            EXPECT_EQ(fixture.display.targets, std::vector{FindTarget::LookUp});
            model.FindBV_Action();
            EXPECT_FALSE(fixture.display.missed) << "while the find bar shows a look-up, Return is one, and waits";
            model.setTarget(FindTarget::LookUp);
            fixture.host.onYield = nullptr;
        };
        if (fails)
            EXPECT_THROW(fixture.runPosted(), NilObjectException);
        else
            fixture.runPosted();
        EXPECT_EQ(fixture.text.text, kAmorBlock);
        EXPECT_EQ(fixture.display.word, "amor");
        EXPECT_EQ(fixture.display.targets.back(), FindTarget::Find);
        EXPECT_EQ(model.settings().target, FindTarget::Find);
        EXPECT_FALSE(fixture.busy.busy());
        EXPECT_TRUE(fixture.main.log.empty()) << "it does not go back to the main window";
    }
}

TEST(TickingLatin, TriesTheProgram) {
    const std::pair<const char*, bool> cases[] = {
        {"echo $# arguments", true}, {"echo $# arguments; exit 1", false}, {nullptr, false}, {"yes", false}};
    for (const auto& [program, staysOn] : cases) {
        SCOPED_TRACE(program == nullptr ? "not installed" : program);
        ModelFixture fixture;
        if (program != nullptr)
            fixture.installWords(program);
        SideModel& model = fixture.open();
        fixture.text.text = "kept\n";
        {
            const Busy guard(fixture.busy);
            fixture.display.sourcesOn[test::Latin] = true; // as the click leaves the check box
            model.setSource(test::Latin, true);
            EXPECT_FALSE(fs::exists(fixture.preferences.at("temp.sh"))) << "it waits";
        }
        fixture.runPosted();
        EXPECT_EQ(fixture.display.sourcesOn[test::Latin], staysOn);
        EXPECT_EQ(model.settings().sourcesOn[test::Latin], staysOn);
        EXPECT_EQ(fixture.host.questions.size(), staysOn ? 0U : 1U);
        EXPECT_EQ(fixture.text.text, staysOn ? "kept\n" + wordsBlock("0 arguments\n") : "kept\n");
        const std::string folder = fixture.words.path().string() + "/";
        EXPECT_EQ(fixture.preferences.read("temp.sh"), "cd " + folder + "\n" + folder + "words");

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
            SideModel& model = fixture.openForLookUp(withWord ? "LU" : "");
            fixture.now += std::chrono::hours(1);
            std::vector<bool> shown;
            bool closed = false;
            fixture.host.onYield = [&] {
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
            for (int time = by == By::User ? 2 : 1; time > 0; --time) {
                shown.clear();
                withWord ? fixture.ask("amor") : model.setSource(test::Latin, true);
                EXPECT_EQ(shown[1], false);
                EXPECT_EQ(shown[2], true);
            }
            EXPECT_FALSE(fixture.display.waits);
            EXPECT_TRUE(fixture.host.questions.empty());
            EXPECT_EQ(fixture.text.text, withWord && by != By::Close ? kUserBlock : "") << "the next source";
            EXPECT_EQ(fixture.display.released, by == By::Close ? 1 : 0);
            EXPECT_EQ(model.settings().sourcesOn[test::Latin], withWord || by == By::Close);
            fixture.runPosted();
            EXPECT_EQ(closed, by == By::EndOfTheRun);
        }
}

} // namespace
} // namespace velmarin
