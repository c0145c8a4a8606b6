#include "text/Grep.h"
#include "support/CollectedMessages.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

class GrepTest : public testing::Test {
  protected:
    GrepTest() { mStrMod_OpenThisModule(); }

    test::CollectedMessages messages;
};

TEST_F(GrepTest, SearchReturnsThePositionOfAMatchFromOne) {
    const struct {
        const char* reason;
        int start;
        std::string text, pattern;
        int position;
    } rows[] = {
        {"characters, not bytes", 0, "éé<@_a_>", "<@_(.+?)_>", 3},
        {"empty name is none", 0, "<@__>", "<@_(.+?)_>", 0},
        {"empty match", 0, "", "^", 1},
        {"start in characters", 2, "éa", "a", 2},
        {"behind the last match", 4, "abab", "a", 0},
        {"beyond the text", 9, "abab", "a", 0},
        {"negative start", -1, "abab", "a", 1},
        {"CR LF is one end", 0, "a\r\nb", "^b", 3},
        {"the point stops at an end", 0, "a\rb", "a.b", 0},
        {"word characters are ASCII", 0, "aé", "[^\\w]", 2},
        {"NUL is a character", 0, std::string("a\0b", 3), "a.b", 1},
        {"no stray byte is that character", 0, "\xE9", "\\x{3042}", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mStrMod_GrepMBS_Search(row.start, row.text, row.pattern), row.position) << row.reason;
    EXPECT_TRUE(messages.texts.empty());
}

TEST_F(GrepTest, FindReturnsTheNameInAMarker) {
    const struct {
        const char* reason;
        std::string text, name;
    } rows[] = {
        {"page marker", "text <@_ページ 1.tif_> text", "ページ 1.tif"},
        {"not over a line end", "<@_a\r_>", ""},
        {"stray bytes", "caf\xE9 <@_caf\xE9.tif_>", "caf\xE9.tif"},
        {"cut character before the closing sign", "<@_\xE3\x83_> \xFF", "\xE3\x83"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mStrMod_GrepMBS_Find(0, row.text, kPageMarkerPattern), row.name) << row.reason;
    EXPECT_EQ(mStrMod_GrepMBS_Find(0, "abc", "b"), "") << "no group";
}

TEST_F(GrepTest, ReplaceInsertsTheReplacementLiterally) {
    const struct {
        const char* reason;
        std::string text, pattern, replacement, first, all;
    } rows[] = {
        {"no match, line ends", "a\r\nb\r", "x", "y", "a\nb\n", "a\nb\n"},
        {"references mean nothing", "ab", "(b)", "$1\\1", "a$1\\1", "a$1\\1"},
        {"line end inserted", "ab", "b", "\r\n", "a\n", "a\n"},
        {"longer than the text", "--", "-", std::string(200, 'x'), std::string(200, 'x') + "-", std::string(400, 'x')},
        {"empty matches", "ab", "x*", "-", "-ab", "-a-b-"},
        {"character beyond ASCII", "é", "[^\\w]", "-", "-", "--"},
        {"stray byte, two matches", "\xE9-a-", "-", "+", "\xE9+a-", "\xE9+a+"},
        {"bad pattern", "a\rb", "(", "x", "a\rb", "a\rb"},
        {"empty text", "", "^", "x", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mStrMod_GrepMBS_Replace(row.text, row.pattern, row.replacement), row.first) << row.reason;
        EXPECT_EQ(mStrMod_GrepMBS_ReplaceAll(row.text, row.pattern, row.replacement), row.all) << row.reason;
    }
    EXPECT_TRUE(messages.texts.empty());
}

TEST_F(GrepTest, ABadPatternIsReportedAndFindsNothing) {
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, "((", "("), 0);
    EXPECT_EQ(mStrMod_GrepMBS_Find(0, "((", "("), "");
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, "\xE9", "\xE9"), 0) << "a pattern is UTF-8";
    EXPECT_EQ(messages.texts, std::vector<std::string>(3, "failed to compile: Bad regular expression"));
}

TEST_F(GrepTest, FoundStrIsTheLastMatchOfGrepAlone) {
    EXPECT_EQ(mStrMod_GrepMBS_FoundStr(), "");
    mStrMod_GrepMBS_Search(0, "000-00", kFieldSeparatorPattern);
    mStrMod_GrepMBS_ReplaceAll("a.b", kFieldSeparatorPattern, "");
    EXPECT_EQ(mStrMod_GrepMBS_FoundStr(), "-");
    mStrMod_GrepMBS_Find(0, "x<@_a_>", kPageMarkerPattern);
    EXPECT_EQ(mStrMod_GrepMBS_FoundStr(), "<@_a_>");
    mStrMod_GrepMBS_Search(0, "000", kFieldSeparatorPattern);
    EXPECT_EQ(mStrMod_GrepMBS_FoundStr(), "") << "a miss leaves no match behind";
    mStrMod_GrepMBS_Search(0, "000-00", kFieldSeparatorPattern);
    mStrMod_GrepMBS_Search(0, "000-00", "(");
    EXPECT_EQ(mStrMod_GrepMBS_FoundStr(), "") << "nor does a bad pattern";
}

TEST_F(GrepTest, LongTextsAreSearchedToTheirEnd) {
    std::string text(3'000'000, 'x');
    for (std::size_t i = 0; i < text.size(); i += 100)
        text[i] = '<';
    text += "<@_a_>";
    EXPECT_EQ(mStrMod_GrepMBS_Find(0, text, kPageMarkerPattern), "a");
    EXPECT_EQ(mStrMod_GrepMBS_Find(0, "\xFF" + text, kPageMarkerPattern), "a");
    EXPECT_EQ(mStrMod_GrepMBS_ReplaceAll(text, "[^\\w]", "").size(), text.size() - 30'003);
}

TEST_F(GrepTest, EndlessBacktrackingIsNoMatch) {
    std::string markers;
    while (markers.size() < 1'000'000)
        markers += "<@_";
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, markers, kPageMarkerPattern), 0);
    EXPECT_EQ(mStrMod_GrepMBS_Replace(markers, kPageMarkerPattern, ""), markers);
    const std::string run = std::string(40, 'a') + "b";
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, run, "(a+)+$"), 0);
    EXPECT_EQ(mStrMod_GrepMBS_ReplaceAll(run, "(a+)+$", ""), run);
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, std::string(100'000, 'a'), "(a|b)*c"), 0);
    EXPECT_EQ(mStrMod_GrepMBS_Search(0, "b", "b"), 1) << "and the next search works";
}

} // namespace
} // namespace velmarin
