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

constexpr const char* kWordsBlock = "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\namor N\n\n\n";
constexpr const char* kUserBlock = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\namor\n\nlove\n\n";
constexpr const char* kSorryBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nSorry no result for xqz !\n\n";

struct SourcesCase {
    const char* name;
    bool service, latin, user;
    const char* word;
    std::string text;
};

class LookUpSources : public testing::TestWithParam<SourcesCase> {};

TEST_P(LookUpSources, WriteInTheirOrder) {
    SideFixture fixture;
    fixture.installWords("echo \"$1 N\"");
    fixture.addUserDictionary("Mine", "amor\tlove\n");
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.useUserDictionary(0);
    fixture.control<QCheckBox>("DicAppCB").setChecked(GetParam().service);
    fixture.control<QCheckBox>("LatinCB").setChecked(GetParam().latin);
    fixture.control<QCheckBox>("UserDicCB").setChecked(GetParam().user);
    fixture.EF().setWholeText("of the last time");
    fixture.ask(QString::fromUtf8(GetParam().word));
    EXPECT_EQ(fixture.text(), GetParam().text);
    EXPECT_EQ(fixture.FindEF().selectedText(), QString::fromUtf8(GetParam().word));
    EXPECT_FALSE(fixture.busy.busy());
}

INSTANTIATE_TEST_SUITE_P(Switches, LookUpSources,
                         testing::Values(SourcesCase{"None", false, false, false, "amor", ""},
                                         SourcesCase{"Service", true, false, false, "amor", kAmorBlock},
                                         SourcesCase{"ServiceWithoutAnAnswer", true, false, false, "xqz", kSorryBlock},
                                         SourcesCase{"Latin", false, true, false, "amor", kWordsBlock},
                                         SourcesCase{"User", false, false, true, "amor", kUserBlock},
                                         SourcesCase{"UserWithoutAHit", false, false, true, "xqz", ""},
                                         SourcesCase{"All", true, true, true, "amor",
                                                     std::string(kAmorBlock) + kWordsBlock + kUserBlock},
                                         SourcesCase{"EmptyWordLeavesAll", true, true, true, "", "of the last time"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(LookUp, KeepsTheTextIfSoWishedAndScrollsToItsOwnStart) {
    SideFixture fixture;
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.control<QCheckBox>("DontClearCB").setChecked(true);
    fixture.EF().setWholeText(QString("x\n").repeated(200));
    const int start = fixture.EF().textLength();
    fixture.ask("amor");
    fixture.EF().select(0, 0);
    fixture.ask("xqz");
    EXPECT_EQ(fixture.text().substr(static_cast<std::size_t>(start)), std::string(kAmorBlock) + kSorryBlock);
    EXPECT_GT(fixture.EF().verticalScrollBar()->value(), 0);
    for (int i = 0; i < 40; ++i)
        fixture.ask("xqz");
    fixture.EF().select(0, 0);
    const int last = fixture.EF().textLength();
    fixture.ask("amor");
    QTextCursor cursor(fixture.EF().document());
    cursor.setPosition(last);
    EXPECT_LE(fixture.EF().cursorRect(cursor).top(), fixture.EF().viewport()->height());
    EXPECT_GE(fixture.EF().cursorRect(cursor).top(), 0);
}

TEST(LookUp, InTheUserDictionaryAloneWritesAtTheInsertionPoint) {
    SideFixture fixture;
    fixture.addUserDictionary("Mine", "amor\tlove\n");
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.useUserDictionary(0);
    fixture.control<QCheckBox>("DicAppCB").setChecked(false);
    fixture.control<QCheckBox>("DontClearCB").setChecked(true);
    fixture.EF().setWholeText("before after");
    fixture.EF().select(6, 1);
    fixture.ask("amor");
    EXPECT_EQ(fixture.text(), std::string("before") + kUserBlock + "after");
}

TEST(LookUp, InTheServiceWritesAtTheEndWhateverIsTypedMeanwhile) {
    SideFixture fixture;
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.host.onYield = [&] {
        EXPECT_TRUE(fixture.busy.busy());
        fixture.EF().select(0, 0);
        QTest::keyClicks(&fixture.EF(), "xy");
        fixture.EF().select(0, 0);
    };
    fixture.ask("amor");
    EXPECT_EQ(fixture.text(), std::string("xy") + kAmorBlock);
}

TEST(LookUp, ShowsUserHitsInTheirStyles) {
    SideFixture fixture;
    fixture.addUserDictionary("Mine", "amo__NUM__2\tto__BR__love\tnever shown\na__BR__b\nAMO\tx\n");
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.useUserDictionary(0);
    fixture.control<QCheckBox>("DicAppCB").setChecked(false);
    fixture.EF().setTextSize(12.7);
    fixture.ask("amo");
    const std::string heading = "\n✜✜✜✜✜✜✜✜ Mine ✜✜✜✜✜✜✜✜\n\n";
    EXPECT_EQ(fixture.text(), heading + "amo²\n\nto\nlove\n\n" + heading + "AMO\n\nx\n\n");

    const auto styleAt = [&](const char* text) {
        const QTextCursor cursor = fixture.EF().document()->find(QString::fromUtf8(text));
        return cursor.charFormat();
    };
    EXPECT_EQ(styleAt("Mine").foreground().color(), QColor(64, 128, 0));
    EXPECT_EQ(styleAt("amo²").foreground().color(), QColor(0, 0, 128));
    EXPECT_NEAR(styleAt("amo²").fontPointSize(), 18.7, 0.001);
    EXPECT_EQ(styleAt("amo²").fontWeight(), QFont::Bold);
    EXPECT_EQ(styleAt("love").foreground().color(), QColor(0, 0, 0));
    EXPECT_EQ(styleAt("love").fontPointSize(), 12);
    EXPECT_NE(styleAt("love").fontWeight(), QFont::Bold);

    for (const double size : {10.0, 16.0}) {
        fixture.EF().setTextSize(size);
        fixture.ask("amo");
        EXPECT_EQ(styleAt("love").fontPointSize(), size);
        EXPECT_EQ(styleAt("x").fontPointSize(), size) << "the second hit is as large as the first";
    }
    fixture.ask("a__BR__b");
    EXPECT_EQ(fixture.text(), heading + "a\nb\n\n\n\n");
}

TEST(LookUp, WithTheOptionKeySearchesTheMainWindowFirst) {
    SideFixture fixture;
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.host.option.held = true;
    bool wasBusy = false;
    std::string textThen = "?";
    fixture.main.onSearchAll = [&] {
        wasBusy = fixture.busy.busy();
        textThen = fixture.text();
    };
    fixture.main.log.clear();
    fixture.ask("amor");
    ASSERT_GE(fixture.main.log.size(), 2U);
    EXPECT_EQ(fixture.main.log[0], "text amor");
    EXPECT_EQ(fixture.main.log[1], "search amor");
    EXPECT_TRUE(wasBusy);
    EXPECT_EQ(textThen, "");
    EXPECT_EQ(fixture.text(), kAmorBlock);

    fixture.main.log.clear();
    fixture.ask("");
    EXPECT_EQ(fixture.main.log[0], "text ");
    EXPECT_EQ(fixture.main.log[1], "search ");
    EXPECT_EQ(fixture.text(), kAmorBlock);

    fixture.side().findBar().setTarget(FindTarget::Find);
    fixture.main.log.clear();
    fixture.ask("love");
    EXPECT_EQ(std::count(fixture.main.log.begin(), fixture.main.log.end(), "search love"), 0);
}

TEST(LookUp, IsPutOffOnceWhileSomethingElseRuns) {
    SideFixture fixture;
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    {
        const Busy guard(fixture.busy);
        fixture.ask("xqz");
        fixture.ask("amor");
        EXPECT_EQ(fixture.text(), "");
    }
    fixture.runPosted();
    EXPECT_EQ(fixture.text(), kAmorBlock);
    fixture.side().findBar().setTarget(FindTarget::Find);
    const Busy guard(fixture.busy);
    fixture.ask("love");
    EXPECT_EQ(fixture.EF().SelLength(), 4) << "finding waits for nothing";
}

TEST(LookUp, InADictionaryWithoutAnIndexRaises) {
    SideFixture fixture;
    std::filesystem::create_directories(fixture.groupFolder.path() / "UserDictionaries/Empty");
    fixture.open();
    fixture.useUserDictionary(0);
    const Busy guard(fixture.busy);
    EXPECT_THROW(fixture.side().mSearchUserDictionary("amor"), NilObjectException);
}

TEST(Synchronising, LooksUpWhateverTheTargetIs) {
    SideFixture fixture;
    fixture.open();
    fixture.side().synchronise("amor");
    EXPECT_EQ(fixture.text(), "");
    fixture.control<QCheckBox>("SyncronizeCB").setChecked(true);
    fixture.side().synchronise("amor");
    EXPECT_EQ(fixture.text(), kAmorBlock);
    EXPECT_EQ(fixture.FindEF().text(), "amor");
    EXPECT_EQ(fixture.side().findBar().target(), FindTarget::Find);
    EXPECT_EQ(std::count(fixture.main.log.begin(), fixture.main.log.end(), "search amor"), 0);
}

TEST(Synchronising, GivesTheTargetBackAfterAnException) {
    SideFixture fixture;
    std::filesystem::create_directories(fixture.groupFolder.path() / "UserDictionaries/Empty");
    fixture.open();
    fixture.useUserDictionary(0);
    fixture.control<QCheckBox>("SyncronizeCB").setChecked(true);
    EXPECT_THROW(fixture.side().synchronise("amor"), NilObjectException);
    EXPECT_EQ(fixture.side().findBar().target(), FindTarget::Find);
    EXPECT_FALSE(fixture.busy.busy());
}

TEST(Synchronising, IsPutOffWhileSomethingElseRuns) {
    SideFixture fixture;
    fixture.open();
    fixture.control<QCheckBox>("SyncronizeCB").setChecked(true);
    {
        const Busy guard(fixture.busy);
        fixture.side().synchronise("amor");
        EXPECT_EQ(fixture.text(), "");
    }
    fixture.runPosted();
    EXPECT_EQ(fixture.text(), kAmorBlock);
}

struct TickCase {
    const char* name;
    const char* program; ///< nothing: it is not there
    bool staysOn;
};

class TickingLatin : public testing::TestWithParam<TickCase> {};

TEST_P(TickingLatin, TriesTheProgram) {
    SideFixture fixture;
    if (GetParam().program != nullptr)
        fixture.installWords(GetParam().program);
    fixture.open();
    fixture.EF().setWholeText("kept\n");
    QCheckBox& box = fixture.control<QCheckBox>("LatinCB");
    box.click();
    EXPECT_EQ(box.isChecked(), GetParam().staysOn);
    if (GetParam().staysOn) {
        EXPECT_TRUE(fixture.host.questions.empty());
        EXPECT_EQ(fixture.text(),
                  "kept\n✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n0 arguments\n\n\n");
    } else {
        EXPECT_EQ(fixture.host.questions,
                  (std::vector<std::string>{
                      "To use this function, you have to install Words made by Mr. Ansel Corrigan. Do you want to go "
                      "to his home page ?\r"}));
        EXPECT_EQ(fixture.text(), "kept\n");
    }
    EXPECT_EQ(fixture.preferences.read("temp.sh"),
              "cd " + fixture.words.path().string() + "/\n" + fixture.words.path().string() + "/words");
}

INSTANTIATE_TEST_SUITE_P(Programs, TickingLatin,
                         testing::Values(TickCase{"Answers", "echo $# arguments", true},
                                         TickCase{"Fails", "echo $# arguments; exit 1", false},
                                         TickCase{"IsNotThere", nullptr, false}, TickCase{"IsEndless", "yes", false}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Latin, FailingInALookUpIsSilentAndLeavesTheBoxOn) {
    SideFixture fixture;
    fixture.open();
    fixture.side().findBar().setTarget(FindTarget::DicApp);
    fixture.control<QCheckBox>("LatinCB").setChecked(true);
    fixture.ask("amor");
    EXPECT_EQ(fixture.text(), kAmorBlock);
    EXPECT_TRUE(fixture.host.questions.empty());
    EXPECT_TRUE(fixture.control<QCheckBox>("LatinCB").isChecked());
}

TEST(Latin, SilenceIsAnAnswer) {
    SideFixture fixture;
    fixture.installWords("exit 0");
    fixture.open();
    const Busy guard(fixture.busy);
    EXPECT_TRUE(fixture.side().mLatinWORDS("amor"));
    EXPECT_EQ(fixture.text(), "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n\n\n");
}

/// WORDS hangs, asked with or without a word.
class HangingLatin : public testing::TestWithParam<bool> {
  protected:
    HangingLatin() {
        fixture_.installWords("sleep 1000");
        fixture_.open().findBar().setTarget(FindTarget::DicApp);
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

TEST(Latin, RunningWhenTheWindowIsShutEndsWithIt) {
    SideFixture fixture;
    fixture.installWords("sleep 1000");
    SubWindow& side = fixture.open();
    side.findBar().setTarget(FindTarget::DicApp);
    fixture.control<QCheckBox>("LatinCB").setChecked(true);
    fixture.control<QCheckBox>("DicAppCB").setChecked(false);
    const QPointer<SubWindow> watched(&side);
    fixture.host.onYield = [&] {
        side.shut();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_FALSE(watched.isNull()) << "it is still running";
    };
    fixture.ask("amor");
    EXPECT_TRUE(std::filesystem::exists(fixture.groupFolder.path() / "Subwindow"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST(DisplayingResults, InAPopupAddsRowsWithTags) {
    SideFixture fixture;
    DictionaryModule module;
    module.pResult = {"one__DLM__first", "two"};
    PopupMenu popup;
    popup.AddRow("kept");
    mDisplayResult(module, "Mine", true, &popup, nullptr, fixture.host);
    ASSERT_EQ(popup.rowCount(), 3);
    EXPECT_EQ(popup.List(1), "one");
    EXPECT_EQ(std::any_cast<std::string>(popup.Tag(1)), "first");
    EXPECT_EQ(popup.List(2), "two");
    EXPECT_EQ(std::any_cast<std::string>(popup.Tag(2)), "");
}

} // namespace
} // namespace velmarin
