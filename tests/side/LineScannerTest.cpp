#include "side/LineScanner.h"

#include "support/TempFolder.h"

#include <random>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

std::vector<std::string> scanned(const FolderItem& item) {
    const auto file = ReadOnlyFile::open(item);
    LineScanner lines(*file);
    std::vector<std::string> all;
    for (std::string_view line; lines.next(line);)
        all.emplace_back(line);
    return all;
}

TEST(LineScanner, TakesTheSameLinesAsTheReaderOfWholeTexts) {
    const test::TempFolder folder;
    std::mt19937 random(7);
    // Lengths about the window's, so that ends of lines fall on its edges.
    for (const int length : {0, 1, 100, 262143, 262144, 262145, 600000}) {
        for (const std::string ends : {"\n", "\r", "\r\n\n\r"}) {
            std::string text = length > 100 ? "" : "\xEF\xBB\xBF";
            while (static_cast<int>(text.size()) < length) {
                text.append(random() % 3000 == 0 ? 300000 : random() % 40, 'x');
                text += random() % 3 == 0 ? "\r\n" : std::string(1, ends[random() % ends.size()]);
            }
            text.resize(static_cast<std::size_t>(length));
            if (random() % 2 == 0)
                text += ends;
            std::vector<std::string> expected;
            LineReader reader(text);
            while (!reader.EOF_())
                expected.emplace_back(reader.ReadLine());
            EXPECT_TRUE(scanned(FolderItem(folder.write("text", text))) == expected) << length << " of " << text.size();
        }
    }
}

TEST(LineScanner, CutsALineThatIsNoLine) {
    const test::TempFolder folder;
    const std::string text = "a\n" + std::string(FileLineReader::kLongestLine + 3'000'000, 'x') + "\nlast";
    const std::vector<std::string> lines = scanned(FolderItem(folder.write("text", text)));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].size(), FileLineReader::kLongestLine);
    EXPECT_EQ(lines[2], "last");
}

} // namespace
} // namespace velmarin
