#include "side/FindInText.h"

#include "text/FindReplace.h"

#include <random>
#include <string>
#include <vector>

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

TEST(FindInText, AgreesWithTheStringRulesOnRandomTexts) {
    std::mt19937 random(3);
    const std::string letters = "abABc";
    for (int round = 0; round < 2000; ++round) {
        std::string text, word;
        for (unsigned i = random() % 30; i > 0; --i)
            text += letters[random() % letters.size()];
        for (unsigned i = random() % 4; i > 0; --i)
            word += letters[random() % letters.size()];
        const int start = static_cast<int>(random() % 34);
        EXPECT_EQ(
            findIgnoringCase(start, std::u16string(text.begin(), text.end()), std::u16string(word.begin(), word.end())),
            static_cast<int>(InStr(static_cast<std::size_t>(std::max(start, 1)), text, word)))
            << text << " " << word << " " << start;
    }
}

} // namespace
} // namespace velmarin
