#include "side/FindInText.h"

#include "text/StringRules.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

struct FindCase {
    const char* name;
    int start;
    std::u16string text;
    std::u16string word;
    int position;
};

class FindInText : public testing::TestWithParam<FindCase> {};

TEST_P(FindInText, IsFoundAt) {
    const FindCase& tested = GetParam();
    EXPECT_EQ(findIgnoringCase(tested.start, tested.text, tested.word), tested.position);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FindInText,
    testing::Values(
        FindCase{"First", 1, u"aba aba", u"aba", 1}, FindCase{"AtTheStartPosition", 5, u"aba aba", u"aba", 5},
        FindCase{"BehindTheStartPosition", 2, u"aba aba", u"aba", 5}, FindCase{"NoneLeft", 6, u"aba aba", u"aba", 0},
        FindCase{"StartBelowOneIsTheTop", -1, u"aba aba", u"aba", 1},
        FindCase{"StartBehindTheEnd", 100, u"aba aba", u"aba", 0}, FindCase{"StartAtTheEnd", 8, u"aba aba", u"a", 0},
        FindCase{"CaseDoesNotCount", 1, u"xx aba", u"ABA", 4},
        FindCase{"CaseBeyondAscii", 1, u"l'\u00E9T\u00C9", u"\u00C9t\u00E9", 3},
        FindCase{"GreekCase", 1, u"\u03BB\u03CC\u03B3\u03BF\u03C3", u"\u039F\u03A3", 4},
        FindCase{"EmptyWordIsAMiss", 1, u"aba", u"", 0}, FindCase{"WordLongerThanTheText", 1, u"ab", u"aba", 0},
        FindCase{"PairsOfHalves", 1, u"a\U0001F600\U0001F601", u"\U0001F601", 4}),
    [](const auto& tested) { return tested.param.name; });

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

/// What a reader does, one letter each: s a step, w another word, c the word cleared.
struct StepCase {
    const char* name;
    const char* deeds;
    std::vector<int> positions; ///< of the steps
    int startAfterwards;
};

class FindStepping : public testing::TestWithParam<StepCase> {};

TEST_P(FindStepping, GoesFromHitToHit) {
    FindSteps steps;
    std::vector<int> positions;
    for (const char deed : std::string(GetParam().deeds)) {
        if (deed == 'w')
            steps.wordChanged();
        else if (deed == 'c')
            steps.cleared();
        else
            positions.push_back(steps.step(3, [](int start) { return findIgnoringCase(start, u"aba aba", u"aba"); }));
    }
    EXPECT_EQ(positions, GetParam().positions);
    EXPECT_EQ(steps.pFindStartPosition, GetParam().startAfterwards);
}

INSTANTIATE_TEST_SUITE_P(Steps, FindStepping,
                         testing::Values(StepCase{"AtFirst", "", {}, 0}, StepCase{"FirstHit", "s", {1}, 4},
                                         StepCase{"SecondHit", "ss", {1, 5}, 8},
                                         StepCase{"MissRearms", "sss", {1, 5, 0}, 0},
                                         StepCase{"FromTheTopAfterAMiss", "ssss", {1, 5, 0, 1}, 4},
                                         StepCase{"AnotherWord", "sw", {1}, -1},
                                         StepCase{"AnotherWordStartsFromTheTop", "sws", {1, 1}, 4},
                                         StepCase{"ClearingWinsOverTheChange", "swc", {1}, 0}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace velmarin
