#include "SideFixture.h"

#include "controls/QtText.h"
#include "side/UserDictionaryDisplay.h"
#include "text/NilObjectException.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::kAmorBlock;
using test::SideFixture;
using LookUp = test::SideTest;
using Synchronising = test::SideTest;
using Latin = test::SideTest;
using DisplayingResults = test::SideTest;

std::string wordsBlock(const std::string& answer) {
    return "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n" + answer + "\n\n";
}
constexpr const char* kUserBlock = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\namor\n\nlove\n\n";
constexpr const char* kSorryBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nSorry no result for xqz !\n\n";

TEST(LookUpSources, WriteInTheirOrder) {
    const struct {
        const char* name;
        bool service, latin, user;
        const char* word;
        std::string text;
    } cases[] = {{"None", false, false, false, "amor", ""},
                 {"Service", true, false, false, "amor", kAmorBlock},
                 {"ServiceWithoutAnAnswer", true, false, false, "xqz", kSorryBlock},
                 {"Latin", false, true, false, "amor", wordsBlock("1:amor\n")},
                 {"LatinWordsInOneArgument", false, true, false, "amo amās", wordsBlock("1:amo amās\n")},
                 {"LatinQuotesAreLeftToTheShell", false, true, false, "a' 'b", wordsBlock("2:a\n")},
                 {"LatinUnendedQuoteIsNoAnswer", false, true, false, "d'amor", ""},
                 {"User", false, false, true, "amor", kUserBlock},
                 {"UserWithoutAHit", false, false, true, "xqz", ""},
                 {"All", true, true, true, "amor", std::string(kAmorBlock) + wordsBlock("1:amor\n") + kUserBlock},
                 {"EmptyWordLeavesAll", true, true, true, "", "of the last time"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        SideFixture fixture;
        fixture.installWords("echo \"$#:$1\"");
        fixture.addUserDictionary("Mine", "amor\tlove\n");
        fixture.openForLookUp();
        fixture.useUserDictionary(0);
        fixture.control<QCheckBox>("DicAppCB").setChecked(each.service);
        fixture.control<QCheckBox>("LatinCB").setChecked(each.latin);
        fixture.control<QCheckBox>("UserDicCB").setChecked(each.user);
        fixture.EF().setWholeText("of the last time");
        fixture.ask(QString::fromUtf8(each.word));
        EXPECT_EQ(fixture.text(), each.text);
        EXPECT_EQ(fixture.FindEF().selectedText(), QString::fromUtf8(each.word));
        EXPECT_FALSE(fixture.busy.busy());
        EXPECT_TRUE(fixture.host.questions.empty());
        EXPECT_EQ(fixture.control<QCheckBox>("LatinCB").isChecked(), each.latin);
    }
}

TEST_F(LookUp, KeepsTheTextOnRequestAndScrollsToItsOwnStart) {
    openForLookUp();
    control<QCheckBox>("DontClearCB").setChecked(true);
    EF().setWholeText(QString("x\n").repeated(200));
    const int start = EF().textLength();
    ask("amor");
    EF().select(0, 0);
    ask("xqz");
    EXPECT_EQ(text().substr(static_cast<std::size_t>(start)), std::string(kAmorBlock) + kSorryBlock);
    EXPECT_GT(EF().verticalScrollBar()->value(), 0);
    for (int i = 0; i < 40; ++i)
        ask("xqz");
    EF().select(0, 0);
    const int last = EF().textLength();
    ask("amor");
    QTextCursor cursor(EF().document());
    cursor.setPosition(last);
    EXPECT_LE(EF().cursorRect(cursor).top(), EF().viewport()->height());
    EXPECT_GE(EF().cursorRect(cursor).top(), 0);
}

TEST_F(LookUp, InTheUserDictionaryAloneWritesAtTheInsertionPoint) {
    addUserDictionary("Mine", "amor\tlove\n");
    openForLookUp();
    useUserDictionary(0);
    control<QCheckBox>("DicAppCB").setChecked(false);
    control<QCheckBox>("DontClearCB").setChecked(true);
    EF().setWholeText("before after");
    EF().select(6, 1);
    ask("amor");
    EXPECT_EQ(text(), std::string("before") + kUserBlock + "after");
}

TEST_F(LookUp, InTheServiceWritesAtTheEndWhileTheUserTypes) {
    openForLookUp();
    host.onYield = [&] {
        EXPECT_TRUE(busy.busy());
        EF().select(0, 0);
        QTest::keyClicks(&EF(), "xy");
        EF().select(0, 0);
    };
    ask("amor");
    EXPECT_EQ(text(), std::string("xy") + kAmorBlock);
}

TEST_F(LookUp, ShowsUserHitsInTheirStyles) {
    addUserDictionary("Mine", "amo__NUM__2\tto__BR__love\tnever shown\na__BR__b\nAMO\tx\n");
    openForLookUp();
    useUserDictionary(0);
    control<QCheckBox>("DicAppCB").setChecked(false);
    EF().setTextSize(12.7);
    ask("amo");
    const std::string heading = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\n";
    EXPECT_EQ(text(), heading + "amo²\n\nto\nlove\n\n" + heading + "AMO\n\nx\n\n");

    const auto styleAt = [&](const char* text) {
        const QTextCursor cursor = EF().document()->find(QString::fromUtf8(text));
        return cursor.charFormat();
    };
    EXPECT_EQ(styleAt("Mine").foreground().color(), QColor(64, 128, 0));
    EXPECT_EQ(styleAt("amo²").foreground().color(), QColor(0, 0, 128));
    EXPECT_NEAR(styleAt("amo²").fontPointSize(), 18.7, 0.001);
    EXPECT_EQ(styleAt("amo²").fontWeight(), QFont::Bold);
    EXPECT_EQ(styleAt("love").foreground().color(), QColor(0, 0, 0));
    EXPECT_EQ(styleAt("love").fontPointSize(), 12);
    EXPECT_NE(styleAt("love").fontWeight(), QFont::Bold);

    EF().setTextSize(16);
    ask("amo");
    EXPECT_EQ(styleAt("love").fontPointSize(), 16);
    EXPECT_EQ(styleAt("x").fontPointSize(), 16) << "the second hit is as large as the first";
    ask("a__BR__b");
    EXPECT_EQ(text(), heading + "a\nb\n\n\n\n");
}

TEST_F(LookUp, WithTheOptionKeySearchesTheMainWindowFirst) {
    openForLookUp();
    host.option.held = true;
    main.onSearchAll = [&] {
        EXPECT_TRUE(busy.busy());
        EXPECT_EQ(text(), "");
        main.onSearchAll = nullptr;
    };
    main.log.clear();
    ask("amor");
    ASSERT_GE(main.log.size(), 2U);
    EXPECT_EQ(main.log[0], "text amor");
    EXPECT_EQ(main.log[1], "search amor");
    EXPECT_EQ(text(), kAmorBlock);

    main.log.clear();
    ask("");
    EXPECT_EQ(main.log[0], "text ");
    EXPECT_EQ(main.log[1], "search ");
    EXPECT_EQ(text(), kAmorBlock);

    side().findBar().setTarget(FindTarget::Find);
    main.log.clear();
    ask("love");
    EXPECT_EQ(std::count(main.log.begin(), main.log.end(), "search love"), 0);
}

TEST_F(LookUp, IsPutOffOnceWhileSomethingElseRuns) {
    openForLookUp();
    {
        const Busy guard(busy);
        ask("xqz");
        ask("amor");
        EXPECT_EQ(text(), "");
    }
    runPosted();
    EXPECT_EQ(text(), kAmorBlock);
    side().findBar().setTarget(FindTarget::Find);
    const Busy guard(busy);
    ask("love");
    EXPECT_EQ(EF().SelLength(), 4) << "finding waits for nothing";
}

TEST_F(Synchronising, LooksUpForAnyTarget) {
    open();
    side().synchronise("amor");
    EXPECT_EQ(text(), "");
    control<QCheckBox>("SyncronizeCB").setChecked(true);
    {
        const Busy guard(busy);
        side().synchronise("amor");
        EXPECT_EQ(text(), "") << "it is put off while something else runs";
    }
    runPosted();
    EXPECT_EQ(text(), kAmorBlock);
    EXPECT_EQ(FindEF().text(), "amor");
    EXPECT_EQ(side().findBar().target(), FindTarget::Find);
    EXPECT_EQ(std::count(main.log.begin(), main.log.end(), "search amor"), 0);
}

TEST_F(Synchronising, GivesTheTargetBackAfterAnException) {
    std::filesystem::create_directories(groupFolder.path() / "UserDictionaries/Empty");
    open();
    useUserDictionary(0);
    control<QCheckBox>("SyncronizeCB").setChecked(true);
    EXPECT_THROW(side().synchronise("amor"), NilObjectException);
    EXPECT_EQ(side().findBar().target(), FindTarget::Find);
    EXPECT_FALSE(busy.busy());
}

TEST(TickingLatin, TriesTheProgram) {
    const struct {
        const char* name;
        const char* program; ///< nothing: it is not there
        bool staysOn;
    } cases[] = {{"Answers", "echo $# arguments", true},
                 {"Fails", "echo $# arguments; exit 1", false},
                 {"IsNotThere", nullptr, false},
                 {"IsEndless", "yes", false}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        SideFixture fixture;
        if (each.program != nullptr)
            fixture.installWords(each.program);
        fixture.open();
        fixture.EF().setWholeText("kept\n");
        QCheckBox& box = fixture.control<QCheckBox>("LatinCB");
        box.click();
        EXPECT_EQ(box.isChecked(), each.staysOn);
        if (each.staysOn) {
            EXPECT_TRUE(fixture.host.questions.empty());
            EXPECT_EQ(fixture.text(), "kept\n" + wordsBlock("0 arguments\n"));
        } else {
            EXPECT_EQ(
                fixture.host.questions,
                (std::vector<std::string>{
                    "To use this function, you have to install Words made by Mr. Ansel Corrigan. Do you want to go "
                    "to his home page ?\r"}));
            EXPECT_EQ(fixture.text(), "kept\n");
        }
        EXPECT_EQ(fixture.preferences.read("temp.sh"),
                  "cd " + fixture.words.path().string() + "/\n" + fixture.words.path().string() + "/words");
    }
}

TEST_F(Latin, SilenceIsAnAnswer) {
    installWords("exit 0");
    open();
    const Busy guard(busy);
    EXPECT_TRUE(side().mLatinWORDS("amor"));
    EXPECT_EQ(text(), wordsBlock(""));
}

/// WORDS hangs, asked with or without a word.
class HangingLatin : public testing::TestWithParam<bool> {
  protected:
    HangingLatin() {
        fixture_.installWords("sleep 1000");
        fixture_.openForLookUp();
        fixture_.control<QCheckBox>("DicAppCB").setChecked(false);
    }
    void ask() {
        QCheckBox& box = fixture_.control<QCheckBox>("LatinCB");
        if (!GetParam()) {
            box.click();
            EXPECT_FALSE(box.isChecked());
            return;
        }
        box.setChecked(true);
        fixture_.ask("amor");
        EXPECT_TRUE(box.isChecked());
    }
    void expectSilence() {
        EXPECT_TRUE(fixture_.host.questions.empty());
        EXPECT_EQ(fixture_.text(), "");
        EXPECT_FALSE(fixture_.control<WaitNotice>("WaitNotice").isVisible());
    }
    SideFixture fixture_;
};

TEST_P(HangingLatin, IsToldAfterHalfASecondAndStopsSilently) {
    auto& notice = fixture_.control<WaitNotice>("WaitNotice");
    std::vector<bool> shown;
    fixture_.host.onYield = [&] {
        shown.push_back(notice.isVisible());
        EXPECT_TRUE(fixture_.busy.busy());
        fixture_.now += std::chrono::milliseconds(250);
        if (notice.isVisible())
            QTest::mouseClick(notice.StopBT(), Qt::LeftButton);
    };
    ask();
    EXPECT_EQ(shown, (std::vector<bool>{false, false, true}));
    expectSilence();
}

TEST_P(HangingLatin, EndsWhenTheMainWindowIsToClose) {
    bool closed = false;
    fixture_.host.onYield = [&] { fixture_.busy.whenStopped([&] { closed = true; }); };
    ask();
    fixture_.runPosted();
    EXPECT_TRUE(closed);
    expectSilence();
}

INSTANTIATE_TEST_SUITE_P(Latin, HangingLatin, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "LookUp" : "Ticking"; });

TEST_F(Latin, RunningWhenTheWindowIsShutEndsWithIt) {
    installWords("sleep 1000");
    SubWindow& side = openForLookUp();
    control<QCheckBox>("LatinCB").setChecked(true);
    control<QCheckBox>("DicAppCB").setChecked(false);
    const QPointer<SubWindow> watched(&side);
    host.onYield = [&] {
        side.shut();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_FALSE(watched.isNull()) << "it is still running";
    };
    ask("amor");
    EXPECT_TRUE(std::filesystem::exists(groupFolder.path() / "Subwindow"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST_F(DisplayingResults, InAPopupAddsRowsWithTags) {
    DictionaryModule module;
    module.pResult = {"one__DLM__first", "two"};
    PopupMenu popup;
    popup.AddRow("kept");
    mDisplayResult(module, "Mine", true, &popup, nullptr, host);
    ASSERT_EQ(popup.rowCount(), 3);
    EXPECT_EQ(popup.List(1), "one");
    EXPECT_EQ(std::any_cast<std::string>(popup.Tag(1)), "first");
    EXPECT_EQ(popup.List(2), "two");
    EXPECT_EQ(std::any_cast<std::string>(popup.Tag(2)), "");
}

} // namespace
} // namespace velmarin
