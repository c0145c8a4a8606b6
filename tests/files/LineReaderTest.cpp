#include "files/LineReader.h"
#include "files/IndexedTextFile.h"
#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::TempFolder;
using Lines = std::vector<std::string>;

Lines linesInMemory(const std::string& text) {
    Lines lines;
    for (LineReader reader(text); !reader.EOF_();)
        lines.emplace_back(reader.ReadLine());
    return lines;
}

Lines linesInFile(const FolderItem& item) {
    Lines lines;
    const auto file = ReadOnlyFile::open(item);
    LineScanner scanner(*file);
    for (std::string_view line; scanner.next(line);)
        lines.emplace_back(line);
    return lines;
}

Lines linesByNumber(IndexedTextFile& file) {
    Lines lines;
    for (std::uint64_t number = 1;; ++number) {
        const auto line = file.line(number);
        if (line.status != IndexedTextFile::Status::Found)
            return lines;
        lines.push_back(line.text);
    }
}

struct LineCase {
    const char* reason;
    std::string text;
    Lines lines;
};

class LineEnds : public testing::TestWithParam<LineCase> {};

TEST_P(LineEnds, AreTakenAlikeByEveryReader) {
    const TempFolder folder;
    const FolderItem item(folder.write("txt", GetParam().text));
    IndexedTextFile indexed(item);
    EXPECT_EQ(linesInMemory(GetParam().text), GetParam().lines);
    EXPECT_EQ(linesInFile(item), GetParam().lines);
    EXPECT_EQ(linesByNumber(indexed), GetParam().lines);
}

const std::string kMark = "\xEF\xBB\xBF";

INSTANTIATE_TEST_SUITE_P(
    Texts, LineEnds,
    testing::Values(LineCase{"Empty", "", {}}, LineCase{"OneLineFeed", "\n", {""}},
                    LineCase{"NoEndAtTheEnd", "a\nb", {"a", "b"}}, LineCase{"EndAtTheEnd", "a\nb\n", {"a", "b"}},
                    LineCase{"CarriageReturns", "a\rb\r\rc", {"a", "b", "", "c"}},
                    LineCase{"Pairs", "a\r\nb\r\n\r\n", {"a", "b", ""}},
                    LineCase{"LineFeedThenCarriageReturn", "a\n\rb", {"a", "", "b"}},
                    LineCase{"Mixed", "a\rb\nc\r\nd", {"a", "b", "c", "d"}},
                    LineCase{"CarriageReturnAtTheEnd", "a\r", {"a"}}, LineCase{"NulBytes", "a\0b\nc"s, {"a\0b"s, "c"}},
                    LineCase{"ByteOrderMark", kMark + "a\nb", {"a", "b"}}, LineCase{"ByteOrderMarkAlone", kMark, {}},
                    LineCase{"SecondByteOrderMarkIsText", kMark + kMark + "a", {kMark + "a"}},
                    LineCase{"MarkOnALaterLineIsText", "a\n" + kMark + "b", {"a", kMark + "b"}},
                    LineCase{"LineLongerThanTheWindow",
                             std::string(3 * LineScanner::kWindow, 'x') + "\r\ny",
                             {std::string(3 * LineScanner::kWindow, 'x'), "y"}},
                    LineCase{"PairSplitByTheWindow",
                             std::string(LineScanner::kWindow - 1, 'x') + "\r\ny",
                             {std::string(LineScanner::kWindow - 1, 'x'), "y"}},
                    LineCase{"CarriageReturnLastInWindow",
                             std::string(LineScanner::kWindow - 1, 'x') + "\ry",
                             {std::string(LineScanner::kWindow - 1, 'x'), "y"}},
                    LineCase{"CarriageReturnLastInWindowAndFile",
                             std::string(LineScanner::kWindow - 1, 'x') + "\r",
                             {std::string(LineScanner::kWindow - 1, 'x')}}),
    [](const auto& info) { return info.param.reason; });

/// The rule of line ends, a character at a time.
Lines linesLiterally(const std::string& text) {
    Lines lines;
    std::string line;
    bool open = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') {
            line += text[i];
            open = true;
            continue;
        }
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
        lines.push_back(std::exchange(line, ""));
        open = false;
    }
    if (open)
        lines.push_back(line);
    return lines;
}

TEST(IndexedTextFile, AnswersAsTheLiteralRuleDoesInAnyOrderOfQuestions) {
    std::mt19937 random(11);
    const TempFolder folder;
    for (int round = 0; round < 12; ++round) {
        std::string text;
        for (int i = 0; i < 40'000; ++i)
            text += "ab\r\n\r\n\nc\r"[random() % 9];
        const Lines lines = linesLiterally(text);
        EXPECT_EQ(linesInMemory(text), lines);
        IndexedTextFile file(FolderItem(folder.write("txt" + std::to_string(round), text)));
        for (int question = 0; question < 60; ++question) {
            const std::uint64_t number = random() % (lines.size() + 3);
            const auto answer = file.line(number);
            if (number == 0 || number > lines.size()) {
                EXPECT_EQ(answer.status, IndexedTextFile::Status::NoSuchLine) << number;
            } else {
                ASSERT_EQ(answer.status, IndexedTextFile::Status::Found) << number;
                EXPECT_EQ(answer.text, lines[number - 1]) << number;
            }
        }
    }
}

TEST(IndexedTextFile, ReadsAnEditedFileAnew) {
    const TempFolder folder;
    const fs::path path = folder.write("txt", "a\nb\nc\n");
    IndexedTextFile file{FolderItem(path)};
    EXPECT_EQ(file.line(3).text, "c");
    folder.write("txt", "aa\nb\nC\n");
    EXPECT_EQ(file.line(3).text, "C");
    folder.write("txt", "x\ny\nz w\n");
    EXPECT_EQ(file.line(3).text, "z w");
    folder.write("txt", "x\ny zwv\n"); // in place, at the same length, within the tick of the clock
    EXPECT_EQ(file.line(2).text, "y zwv");
    fs::remove(path);
    EXPECT_EQ(file.line(1).status, IndexedTextFile::Status::NoFile);
    folder.write("txt", "back\n");
    EXPECT_EQ(file.line(1).text, "back");
}

TEST(IndexedTextFile, SeesAnotherFileInItsPlaceEvenAnOldOne) {
    const TempFolder folder;
    const fs::path link = folder.path() / "txt";
    IndexedTextFile file{FolderItem(link)};
    // Each question goes further on than the one before, so that a place of the other file would be used.
    std::uint64_t number = 2;
    for (const char* target : {"/etc/passwd", "/etc/group", "/etc/passwd"}) {
        fs::remove(link);
        fs::create_symlink(target, link);
        std::ifstream in(target);
        std::string wanted;
        for (std::uint64_t i = 0; i < number; ++i)
            ASSERT_TRUE(std::getline(in, wanted)) << target;
        EXPECT_EQ(file.line(number).text, wanted) << target;
        ++number;
    }
}

TEST(ReadOnlyFile, OpensRegularFilesOnlyAndNeverWaits) {
    const TempFolder folder;
    folder.write("file", "text");
    ASSERT_EQ(::mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
    fs::create_symlink("file", folder.path() / "link");
    fs::create_symlink("fifo", folder.path() / "linkToFifo");
    fs::create_symlink("loop", folder.path() / "loop");
    const auto opens = [](const fs::path& path) { return ReadOnlyFile::open(FolderItem(path)).has_value(); };
    EXPECT_TRUE(opens(folder.path() / "file"));
    EXPECT_TRUE(opens(folder.path() / "link"));
    for (const char* name : {"fifo", "linkToFifo", "loop", "missing", "file/inside", "."})
        EXPECT_FALSE(opens(folder.path() / name)) << name;
    EXPECT_FALSE(opens("/dev/zero"));
    EXPECT_FALSE(opens("/dev/tty"));
}

TEST(ReadWholeFile, HoldsToItsLimit) {
    const TempFolder folder;
    const FolderItem ten(folder.write("ten", "0123456789"));
    EXPECT_EQ(readWholeFile(ten), "0123456789");
    EXPECT_EQ(readWholeFile(ten, 10), "0123456789");
    EXPECT_FALSE(readWholeFile(ten, 9));
    EXPECT_EQ(readWholeFile(FolderItem(folder.write("none", ""))), "");
    // A file that claims a terabyte is refused before any memory is taken.
    const fs::path sparse = folder.write("sparse", "");
    ASSERT_EQ(::truncate(sparse.c_str(), off_t{1} << 40), 0);
    EXPECT_FALSE(readWholeFile(FolderItem(sparse)));
    // Files of the system have no size of their own.
    std::ifstream version("/proc/version");
    const std::string text{std::istreambuf_iterator<char>(version), {}};
    ASSERT_GT(text.size(), 10u);
    EXPECT_EQ(readWholeFile(FolderItem("/proc/version")), text);
    EXPECT_FALSE(readWholeFile(FolderItem("/proc/version"), 10));
}

TEST(LineScanner, CutsALineThatIsNoLine) {
    const TempFolder folder;
    const FolderItem huge(
        folder.write("text", "a\n" + std::string(LineScanner::kLongestLine + 3'000'000, 'x') + "\nlast"));
    const Lines lines = linesInFile(huge);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].size(), LineScanner::kLongestLine);
    EXPECT_EQ(lines[2], "last");
    IndexedTextFile indexed(huge);
    EXPECT_EQ(indexed.line(3).text, "last");
    EXPECT_EQ(indexed.line(3).text, "last") << "by the noted place";
}

} // namespace
} // namespace velmarin
