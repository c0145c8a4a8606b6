#include "side/LookUpText.h"

#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// A program `words` that says what it was asked.
struct StandIn {
    test::TempFolder folder;
    test::TempFolder preferences;

    explicit StandIn(const std::string& program) {
        std::filesystem::permissions(folder.write("words", "#!/bin/sh\n" + program), std::filesystem::perms::owner_all);
    }
    ScriptResult ask(const std::string& word) const {
        return runWords(
            FolderItem(preferences.path()), word, [] { return true; }, folder.path().string() + "/");
    }
};

TEST(AskingWords, Answers) {
    const struct {
        const char* name;
        const char* word;
        bool ok;
        const char* output;
    } cases[] = {{"Word", "amor", true, "1:amor\n"},
                 {"BlanksStayInOneArgument", "amo amas", true, "1:amo amas\n"},
                 {"EmptyWordIsNoArgument", "", true, "0:\n"},
                 {"QuoteIsLeftToTheShell", "d'amor", false, ""},
                 {"TwoQuotesAreLeftToTheShell", "a' 'b", true, "2:a\n"},
                 {"BeyondAscii", "amōr", true, "1:amōr\n"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const StandIn words("echo \"$#:$1\"");
        const ScriptResult result = words.ask(each.word);
        EXPECT_EQ(result.ok(), each.ok);
        EXPECT_EQ(result.output, each.output);
    }
}

TEST(AskingWordsFolder, WithoutTheProgramIsAFailure) {
    const test::TempFolder preferences;
    EXPECT_FALSE(runWords(
                     FolderItem(preferences.path()), "amor", [] { return true; }, "/no/such/folder/")
                     .ok());
    EXPECT_EQ(preferences.read("temp.sh"), "cd /no/such/folder/\n/no/such/folder/words 'amor'");
}

TEST(AskingWordsFolder, WhereTheScriptCannotBeWrittenRaises) {
    EXPECT_THROW(runWords(FolderItem("/no/such/folder"), "amor", [] { return true; }), NilObjectException);
}

} // namespace
} // namespace velmarin
