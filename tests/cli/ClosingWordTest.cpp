#include "cli/IndexCheck.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace {

TEST(ClosingWord, RepeatsOneCharacterOrIsPrivateUse) {
    for (const char* word :
         {"ZZ", "ZZZZ", "999-99", "-Z'Z", "ÉÉ", "\uE000", "\uF8FFa", "\uFFF0", "\U000F0000", "\U0010FFFD"})
        EXPECT_TRUE(isClosingWord(word)) << word;
    for (const char* word :
         {"", "Z", "--", "ZZY", "999-98", "ÉÈ", "\uD7FF", "\uF900", "\uFFEF", "\U000EFFFF", "A\uE000", "\xFF"})
        EXPECT_FALSE(isClosingWord(word)) << word;
}

} // namespace
} // namespace velmarin::test
