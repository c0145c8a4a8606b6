#include "store/TextFileLines.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::TempFolder;
using Texts = std::vector<std::string>;

TEST(LinesByNumbers, EndAtANumberThatDoesNotRise) {
    const struct {
        const char* reason;
        std::vector<int> numbers;
        Texts lines;
    } cases[] = {{"Several", {1, 3, 4, 5}, {"one", "three", "", "five"}},
                 {"EachTwiceGivesItOnce", {2, 2}, {"two"}},
                 {"ARepeatedNumberStopsTheRest", {2, 2, 3}, {"two"}},
                 {"ZeroStopsTheRest", {0, 3}, {}},
                 {"Negative", {-1}, {}},
                 {"PastTheEnd", {5, 6, 9}, {"five"}},
                 {"DescendingEndsAtTheLast", {3, 1}, {}}};
    const TempFolder folder;
    const FolderItem file(folder.write("txt", "one\r\ntwo\rthree\n\nfive"));
    for (const auto& each : cases) {
        Texts lines = {"before"};
        mFiMod_GetTextFiLinesByLineNums(file, each.numbers, lines);
        EXPECT_EQ(lines.front(), "before");
        EXPECT_EQ(Texts(lines.begin() + 1, lines.end()), each.lines) << each.reason;
    }
    EXPECT_EQ(mFiMod_GetLineCountFromTextFi(file), 5);
    EXPECT_EQ(mFiMod_GetLineCountFromTextFi(FolderItem(folder.path())), 0);
    EXPECT_EQ(mFiMod_GetLineCountFromTextFi(FolderItem()), 0);
}

TEST(LinesByNumbers, ReportWhatIsMissing) {
    const TempFolder folder;
    const FolderItem file(folder.write("txt", "one\n"));
    const test::CollectedMessages messages;
    Texts lines;
    mFiMod_GetTextFiLinesByLineNums(FolderItem(), {1}, lines);
    mFiMod_GetTextFiLinesByLineNums(FolderItem(folder.path() / "gone"), {1}, lines);
    mFiMod_GetTextFiLinesByLineNums(file, {}, lines);
    mFiMod_GetTextFiLinesByLineNums(FolderItem(folder.path()), {1}, lines);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(messages.texts, (Texts{"mFiMod_GetTextFiLinesByLineNums_StringArray, TextFileFi is NilObject.",
                                     "mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist.",
                                     "mFiMod_GetTextFiLinesByLineNums_String, LineNum does not exist.",
                                     "NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray"}));
}

} // namespace
} // namespace velmarin
