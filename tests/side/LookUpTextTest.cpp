#include "side/LookUpText.h"

#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(WordsScript, IsWhatPlainJoiningGives) {
    EXPECT_EQ(wordsScript(""), "cd /usr/local/lib/words/\n/usr/local/lib/words/words");
    EXPECT_EQ(wordsScript("amor"), "cd /usr/local/lib/words/\n/usr/local/lib/words/words 'amor'");
    EXPECT_EQ(wordsScript("d'amor"), "cd /usr/local/lib/words/\n/usr/local/lib/words/words 'd'amor'");
}

TEST(LookUpBlocks, StandAsTheyAreShown) {
    EXPECT_EQ(wordsBlock("amor N\r\n"),
              "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\namor N\r\n\n\n");
    EXPECT_EQ(serviceBlock("amor", "love"), "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nlove\n\n");
    EXPECT_EQ(serviceBlock("xqz", ""), "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nSorry no result for xqz !\n\n");
    EXPECT_EQ(userDictionaryHeading("Latin"), "\n✜✜✜✜✜✜✜✜ Latin ✜✜✜✜✜✜✜✜\n\n");
}

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

struct AskCase {
    const char* name;
    const char* word;
    bool ok;
    const char* output;
};

class AskingWords : public testing::TestWithParam<AskCase> {};

TEST_P(AskingWords, Answers) {
    const StandIn words("echo \"$#:$1\"");
    const ScriptResult result = words.ask(GetParam().word);
    EXPECT_EQ(result.ok(), GetParam().ok);
    EXPECT_EQ(result.output, GetParam().output);
}

INSTANTIATE_TEST_SUITE_P(Words, AskingWords,
                         testing::Values(AskCase{"Word", "amor", true, "1:amor\n"},
                                         AskCase{"BlanksStayInOneArgument", "amo amas", true, "1:amo amas\n"},
                                         AskCase{"EmptyWordIsNoArgument", "", true, "0:\n"},
                                         AskCase{"QuoteIsLeftToTheShell", "d'amor", false, ""},
                                         AskCase{"TwoQuotesAreLeftToTheShell", "a' 'b", true, "2:a\n"},
                                         AskCase{"BeyondAscii", "amōr", true, "1:amōr\n"}),
                         [](const auto& tested) { return tested.param.name; });

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
