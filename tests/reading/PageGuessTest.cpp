#include "reading/PageGuess.h"

#include "text/StringFields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace velmarin {
namespace {

/// A line of words, each "TEXT@X"; 20 pixels high, 12 for each byte. Words without a place follow at the distance of a
/// blank.
TextLine line(const std::string& words, int y) {
    TextLine line;
    int x = 0;
    for (const std::string& field : Split(words, " ")) {
        const std::size_t at = field.rfind('@');
        const std::string text = field.substr(0, at);
        x = at == std::string::npos ? x + 8 : std::stoi(field.substr(at + 1));
        line.words.push_back({.text = text, .box = {x, y, 12 * static_cast<int>(text.size()), 20}, .confidence = 0.9});
        x = line.words.back().box.right();
    }
    return line;
}

PageReading page(const std::string& head, const std::string& foot = {}) {
    PageReading reading;
    reading.head.width = reading.foot.width = 1000;
    reading.head.height = reading.foot.height = 1500;
    if (!head.empty())
        reading.head.lines = {line(head, 60)};
    if (!foot.empty())
        reading.foot.lines = {line(foot, 1400)};
    return reading;
}

const std::vector<std::string> kWords{"aback", "abacus", "abbess", "abbot",  "abdomen", "abide", "able",  "abode",
                                      "about", "above",  "abroad", "absent", "absurd",  "abuse", "abyss", "accent"};

/// A book of eight pages. `make` sets the page of a first and a last word.
std::vector<PageReading>
book(const std::function<PageReading(std::size_t, const std::string&, const std::string&)>& make) {
    std::vector<PageReading> pages;
    for (std::size_t i = 0; i < kWords.size() / 2; ++i)
        pages.push_back(make(i, kWords[2 * i], kWords[2 * i + 1]));
    return pages;
}

std::string best(const std::vector<Guess>& guesses) {
    return guesses.empty() ? "" : guesses.front().text;
}

TEST(PageGuess, FindsTheGuideWordsInAnyArrangement) {
    const auto number = [](std::size_t i) { return std::to_string(i + 98); };
    const struct {
        const char* what;
        std::function<PageReading(std::size_t, std::string, std::string)> make;
        const char* has = "fln"; ///< what is found of first, last and number
    } cases[] = {
        {"at both sides",
         [&](auto i, auto f, auto l) { return page(f + "@80 " + number(i) + "@500 *" + l + ".@800"); }},
        {"only at the left", [&](auto i, auto f, auto) { return page(f + "@80 " + number(i) + "@900"); }, "fn"},
        {"only at the right", [&](auto i, auto f, auto) { return page(number(i) + "@80 " + f + "@850"); }, "fn"},
        {"a pair over each of three columns",
         [&](auto, auto f, auto l) { return page(f + "@50 aa@250 aa@380 ab@560 ab@700 " + l + "@850"); }, "fl"},
        {"joined by a dash", [&](auto i, auto f, auto l) { return page(f + "–" + l + "@300 " + number(i) + "@900"); }},
        {"joined by a hyphen", [&](auto, auto f, auto l) { return page(f + "-" + l + "@400"); }, "fl"},
        {"joined by a word", [&](auto, auto f, auto l) { return page(f + "@300 bis " + l); }, "fl"},
        {"joined by a hyphen between blanks", [&](auto, auto f, auto l) { return page(f + "@300 - " + l); }, "fl"},
        {"at the foot", [&](auto i, auto f, auto l) { return page(number(i) + "@500", f + "@80 " + l + "@800"); }},
        {"numbers at the outer corner",
         [&](auto i, auto f, auto l) {
             return page(i % 2 ? f + "@80 " + l + "@600 " + number(i) + "@900"
                               : number(i) + "@80 " + f + "@300 " + l + "@800");
         }},
        {"numbers close to the words, read as letters",
         [&](auto i, auto f, auto l) { return page(f + "@80 l" + std::to_string(i) + " " + l); }},
        {"a running title",
         [&](auto i, auto f, auto l) {
             PageReading reading = page("THE@350 LATIN TONGUE");
             reading.head.lines.push_back(line(f + "@80 " + number(i) + "@500 " + l + "@800", 90));
             return reading;
         }},
        {"torn words",
         [&](auto, auto f, auto l) { return page(f.substr(0, 2) + "@80 " + f.substr(2) + "@105 " + l + "@800"); },
         "fl"},
        {"letters set apart",
         [&](auto, auto f, auto l) {
             std::string apart;
             for (const char c : f)
                 apart += std::string(1, c) + (apart.empty() ? "@80 " : " ");
             apart.pop_back();
             return page(apart + " " + l + "@800");
         },
         "fl"},
        {"none, so that the first entry counts",
         [&](auto i, auto f, auto l) {
             PageReading reading = page("", number(i) + "@500");
             reading.entryStarts = {{line(f + ", n. a kind", 200), line(l + ", v.", 300)}};
             return reading;
         },
         "fn"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::vector<PageGuess> guesses = guessGuideWords(book(c.make));
        for (std::size_t i = 0; i < guesses.size(); ++i) {
            const auto has = [&](char part) { return std::string(c.has).find(part) != std::string::npos; };
            const bool letters = std::string(c.what).ends_with("letters");
            EXPECT_EQ(best(guesses[i].first), has('f') ? kWords[2 * i] : "");
            EXPECT_EQ(best(guesses[i].last), has('l') ? kWords[2 * i + 1] : "");
            EXPECT_EQ(best(guesses[i].number), !has('n') ? "" : letters ? "1" + std::to_string(i) : number(i));
        }
    }
}

TEST(PageGuess, SeesAHyphenThatFewPagesHave) {
    std::vector<PageReading> pages = book([](auto i, auto f, auto l) {
        return i < 3 ? page(f + "-" + l + "@400") : page(i % 2 ? "a@80 kind@400 of@700" : "");
    });
    const std::vector<PageGuess> guesses = guessGuideWords(pages);
    EXPECT_EQ(best(guesses[1].first), "abbess");
    EXPECT_EQ(best(guesses[1].last), "abbot");
}

TEST(PageGuess, TakesMisreadFiguresAtTheOuterCornerForTheNumber) {
    const char* const numbers[] = {"11", "12", "13", "14", "15", "16", "LJ", "ao"};
    const std::vector<PageGuess> guesses = guessGuideWords(book([&](auto i, auto f, auto l) {
        const std::string words = f + "–" + l + "@350";
        return page(i % 2 ? std::string(numbers[i]) + "@50 " + words : words + " " + numbers[i] + "@900");
    }));
    const auto mayBe = [](const PageGuess& guess, const std::string& number) {
        return std::ranges::any_of(guess.number, [&](const Guess& each) { return each.text == number; });
    };
    EXPECT_TRUE(mayBe(guesses[7], "20"));
    for (std::size_t i = 0; i < guesses.size(); ++i) {
        EXPECT_EQ(best(guesses[i].first), kWords[2 * i]);
        EXPECT_EQ(best(guesses[i].last), kWords[2 * i + 1]);
    }
}

TEST(PageGuess, WritesGreekWithTheLettersOfPrint) {
    const std::vector<PageGuess> guesses = guessGuideWords({page("᾿αλωνίζω@80 ϑερμόo@800")});
    EXPECT_EQ(best(guesses[0].first), "αλωνίζω");
    EXPECT_EQ(best(guesses[0].last), "θερμόο");
}

TEST(PageGuess, TellsTheFirstWordOfALeftPageFromTheLastOfARightOne) {
    for (const bool lastAtRight : {true, false}) {
        const std::vector<PageGuess> guesses = guessGuideWords(book([&](auto i, auto f, auto l) {
            PageReading reading = page(i % 2 == 0 ? f + "@80" : (lastAtRight ? l : f) + "@850");
            reading.entryStarts = {{line(f + ", n.", 200)}, {line(l + ", n.", 200)}};
            return reading;
        }));
        for (std::size_t i = 0; i < guesses.size(); ++i) {
            const bool last = lastAtRight && i % 2 == 1;
            EXPECT_EQ(best(guesses[i].first), last ? "" : kWords[2 * i]);
            EXPECT_EQ(best(guesses[i].last), last ? kWords[2 * i + 1] : "");
        }
    }
}

TEST(PageGuess, IsSurerOfWhatAnEntryConfirms) {
    std::vector<PageReading> pages = book([](auto, auto f, auto l) { return page(f + "@80 " + l + "@800"); });
    pages[2].entryStarts = {{line("abdomen, n.", 200), line("abidc, v.", 300)}};
    pages[3].head.lines[0].words[0] = {.text = "ahle", .box = {80, 60, 48, 20}, .confidence = 0.6, .others = {"able"}};
    pages[4].head.lines.clear();
    pages[4].entryStarts = {{line("about (ab out), adv.", 200)}};
    pages[5].look = PageLook::Plate;
    const std::vector<PageGuess> guesses = guessGuideWords(pages);
    EXPECT_GT(guesses[2].first[0].confidence, 0.93);
    EXPECT_EQ(guesses[2].last[0].confidence, 0.9);
    ASSERT_EQ(guesses[2].last.size(), 2U);
    EXPECT_EQ(guesses[2].last[1].text, "abidc");
    ASSERT_EQ(guesses[3].first.size(), 2U);
    EXPECT_EQ(guesses[3].first[1].text, "able");
    EXPECT_LT(guesses[3].first[1].confidence, 0.4);
    EXPECT_EQ(best(guesses[4].first), "about");
    EXPECT_TRUE(guesses[4].unheaded);
    EXPECT_FALSE(guesses[3].unheaded);
    EXPECT_TRUE(guesses[5].first.empty());
}

} // namespace
} // namespace velmarin
