#include "side/FindInText.h"

#include <string>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(FindInText, IsFoundAt) {
    const struct {
        const char* name;
        int start;
        std::u16string text;
        std::u16string word;
        int position;
    } cases[] = {{"StartBelowOneIsTheTop", -1, u"aba aba", u"aba", 1},
                 {"AtTheStart", 5, u"aba aba", u"ABA", 5},
                 {"AfterTheStart", 2, u"ABA aba", u"aBa", 5},
                 {"TooShortARest", 6, u"aba aba", u"aba", 0},
                 {"OverlapsItself", 1, u"aaab", u"aab", 2},
                 {"StartBehindTheEnd", 100, u"aba aba", u"aba", 0},
                 {"CaseBeyondAscii", 1, u"l'\u00E9T\u00C9", u"\u00C9t\u00E9", 3},
                 {"GreekCase", 1, u"\u03BB\u03CC\u03B3\u03BF\u03C3", u"\u039F\u03A3", 4},
                 {"EmptyWordIsAMiss", 1, u"aba", u"", 0},
                 {"PairsOfHalves", 1, u"a\U0001F600\U0001F601", u"\U0001F601", 4}};
    for (const auto& tested : cases) {
        SCOPED_TRACE(tested.name);
        EXPECT_EQ(findIgnoringCase(tested.start, tested.text, tested.word), tested.position);
    }
}

} // namespace
} // namespace velmarin
