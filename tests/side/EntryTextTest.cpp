#include "side/EntryText.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

struct EntryCase {
    const char* name;
    const char* entry;
    const char* shown = nullptr; ///< nothing: as it is
};

class EntryText : public testing::TestWithParam<EntryCase> {};

TEST_P(EntryText, FillsItsParagraphs) {
    EXPECT_EQ(unwrapped(GetParam().entry), GetParam().shown != nullptr ? GetParam().shown : GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, EntryText,
    testing::Values(
        EntryCase{"BrokenLinesAreJoined",
                  "Codex \\Co\"dex\\, n.; pl. {Codices}. [L., the trunk of a tree, a\n"
                  "   board of wood covered with wax, a book.]\n"
                  "   1. A book; a manuscript of the leaves of a tree, of bark and\n"
                  "      of vellum.\n",
                  "Codex \\Co\"dex\\, n.; pl. {Codices}. [L., the trunk of a tree, a board of wood covered with wax, "
                  "a book.]\n   1. A book; a manuscript of the leaves of a tree, of bark and of vellum."},
        EntryCase{"LineWithRoomForTheNextWordEndsAParagraph",
                  "A line that is as long as the longest line of the whole entry\n   and goes on.\n   Another.\n",
                  "A line that is as long as the longest line of the whole entry and goes on.\n   Another."},
        EntryCase{"VerseStays",
                  "O\n   A line that is as long as the longest line of this entry is\n\n   Thou art\n   so fair\n",
                  "O\n   A line that is as long as the longest line of this entry is\n\n   Thou art\n   so fair"},
        EntryCase{"SenseAfterAFullLineStays",
                  "   A line that is as long as the longest line of the whole entry\n   2. Second.\n"
                  "   (a) Third.\n   [Obs.]\n   {See}\n   --Longfellow\n   Note: Fourth."},
        EntryCase{"WithoutAnyIndentsFullLinesAreJoined",
                  "A line that is as long as the longest line of the whole entry\nsecond\nthird",
                  "A line that is as long as the longest line of the whole entry second\nthird"},
        EntryCase{"ShortEntryStays", "Amour\n   love\n   affair\n"},
        EntryCase{"LinesOfNoTerminalStay",
                  "A line that is longer than those that anybody would have broken for a terminal of the old days\n"
                  "   next\n"},
        EntryCase{"LettersAreCountedAndNotBytes",
                  "ééééééééééééééééééééééééééééé\n   A line that is as long as the longest line here, truly so"},
        EntryCase{"Empty", ""}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace velmarin
