#include "store/HeadwordIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velmarin {
namespace {

using Words = std::vector<std::string>;

HeadwordIndex indexOf(const Words& words) {
    HeadwordIndex index;
    for (const std::string& word : words)
        EXPECT_TRUE(index.append(word));
    index.finish();
    return index;
}

/// The definition: from the front, the first entry that sorts after the word.
std::size_t plainLoop(const Words& words, const std::string& word) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (word < words[i])
            return i;
    }
    return words.size();
}

std::string randomWord(std::mt19937& random) {
    static const Words kLetters = {
        "A", "B", "\xC6\xA9", "\xE3\x81\x82", "\xF0\x90\x80\x80", "\xFF", std::string(1, '\0')};
    std::string word;
    for (std::size_t length = random() % 4; length > 0; --length)
        word += kLetters[random() % kLetters.size()];
    return word;
}

TEST(HeadwordIndex, FindsTheFirstGreaterEntryOfAnyListAsThePlainLoopDoes) {
    std::mt19937 random(5);
    int unsortedLists = 0;
    for (int round = 0; round < 2000; ++round) {
        Words words(random() % 40);
        std::generate(words.begin(), words.end(), [&] { return randomWord(random); });
        if (round % 3 == 0)
            std::sort(words.begin(), words.end());
        const HeadwordIndex index = indexOf(words);
        ASSERT_EQ(index.size(), words.size());
        ASSERT_EQ(index.sorted(), std::is_sorted(words.begin(), words.end()));
        unsortedLists += index.sorted() ? 0 : 1;
        for (std::size_t i = 0; i < words.size(); ++i)
            ASSERT_EQ(index[i], words[i]);
        for (int question = 0; question < 20; ++question) {
            const std::string word = randomWord(random);
            ASSERT_EQ(index.firstGreater(word), plainLoop(words, word)) << "round " << round;
        }
    }
    EXPECT_GT(unsortedLists, 1000);
}

} // namespace
} // namespace velmarin
