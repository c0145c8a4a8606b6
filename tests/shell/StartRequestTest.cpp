#include "Started.h"

#include "platform/QtText.h"
#include "shell/StartRequest.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(StartRequest, AWordWithoutAGroupWaitsForAPickAndIsSearchedOnce) {
    const struct {
        StartRequest request;
        std::string reason;
    } cases[] = {
        {{.word = "banana"}, ""},
        {{.group = "Nonsense", .word = "banana"}, "There is no group called ‘Nonsense’"},
        {{.group = "Bad", .word = "banana"}, "DictionaryPreferences.txt"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.request.group);
        Started run({fruitGroup("Good", 2), fruitGroup("Bad", 1)});
        std::filesystem::create_directory(run.groupFolder("Bad") / "DictionaryPreferences.txt");
        runStartRequest(run.window(), c.request);
        const auto* notice = run.control<QLabel>("NoticeST");
        EXPECT_TRUE(notice->isVisible());
        EXPECT_TRUE(notice->text().remove(u'\u200b').contains(toQ(c.reason))) << fromQ(notice->text());
        run.pick("Bad");
        EXPECT_TRUE(notice->text().contains("‘banana’")) << "it waits for a group that can be read";
        run.pick("Good");
        EXPECT_FALSE(notice->isVisible());
        EXPECT_EQ(run.imageName(0), "2.bmp");
        run.pick("Bad");
        run.pick("Good");
        EXPECT_EQ(run.imageName(0), "");
        runStartRequest(run.window(), {.group = "gOOD", .word = "cherry"});
        EXPECT_EQ(run.imageName(0), "3.bmp");
        run.window().close();
        runStartRequest(run.window(), {.word = "banana"});
        run.window().show();
        run.window().close();
        run.app().commands().run("WinItem", 0);
        run.pick("Good");
        EXPECT_EQ(run.imageName(0), "") << "a closed window forgets the word";
    }
}

TEST(StartRequest, AnUnknownGroupBesideTheOnlyOneIsReportedAndItsWordNotSearched) {
    Started run({fruitGroup("Only", 1)});
    runStartRequest(run.window(), {.group = "Nonsense", .word = "banana"});
    EXPECT_TRUE(run.control<QLabel>("NoticeST")->isVisible());
    EXPECT_EQ(run.imageName(0), "");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "banana");
    run.search("cherry");
    EXPECT_FALSE(run.control<QLabel>("NoticeST")->isVisible());
}

} // namespace
} // namespace velmarin::test
