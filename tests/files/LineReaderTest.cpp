#include "files/LineReader.h"
#include "files/IndexedTextFile.h"
#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <random>

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

Lines linesInFile(const FolderItem& item, std::size_t piece = LineScanner::kWindow) {
    Lines lines;
    const auto file = ReadOnlyFile::open(item);
    LineScanner scanner(*file, 0, piece);
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

/// The places that reading line by line finds.
LinePlaces placesByLine(const std::string& text) {
    LinePlaces places;
    for (LineReader reader(text); !reader.EOF_();) {
        reader.ReadLine();
        places.add(reader.position());
    }
    return places;
}

void expectPlaces(const FolderItem& item, const LinePlaces& expected) {
    const LinePlaces found = findLinePlaces(*ReadOnlyFile::open(item));
    EXPECT_EQ(found.lines, expected.lines);
    EXPECT_EQ(found.everyNth, expected.everyNth);
}

std::string x(std::size_t count) {
    return std::string(count, 'x');
}

TEST(LineEnds, AreTakenAlikeByEveryReader) {
    const std::string mark = "\xEF\xBB\xBF";
    constexpr std::size_t kWindow = LineScanner::kWindow;
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a\nb", {"a", "b"}},
        {"a\nb\n", {"a", "b"}},
        {"a\rb\r\rc", {"a", "b", "", "c"}},
        {"a\r\nb\r\n\r\n", {"a", "b", ""}},
        {"a\n\rb", {"a", "", "b"}},
        {"a\rb\nc\r\nd\r", {"a", "b", "c", "d"}},
        {"a\0b\nc"s, {"a\0b"s, "c"}},
        {mark + "a\nb", {"a", "b"}},
        {mark, {}},
        {mark + mark + "a", {mark + "a"}},
        {"a\n" + mark + "b", {"a", mark + "b"}},
        {x(3 * kWindow) + "\r\ny", {x(3 * kWindow), "y"}},
        {x(kWindow - 1) + "\r\ny", {x(kWindow - 1), "y"}},
        {x(kWindow - 1) + "\ry", {x(kWindow - 1), "y"}},
        {x(kWindow - 1) + "\r", {x(kWindow - 1)}},
    };
    for (const auto& [text, lines] : cases) {
        const TempFolder folder;
        const FolderItem item(folder.write("txt", text));
        IndexedTextFile indexed(item);
        EXPECT_EQ(linesInMemory(text), lines);
        for (const std::size_t piece : {kWindow, std::size_t{5}})
            EXPECT_EQ(linesInFile(item, piece), lines);
        EXPECT_EQ(linesByNumber(indexed), lines);
        expectPlaces(item, placesByLine(text));
    }
}

TEST(IndexedTextFile, AnswersAsTheReaderOfAllLinesInAnyOrderOfQuestions) {
    std::mt19937 random(11);
    const TempFolder folder;
    std::vector<fs::path> files = {OLD_FILE, OLD_FILE}; // only in such a file are places remembered
    for (int round = 0; round < 11; ++round) {
        std::string text;
        for (int i = 0; i < 40'000; ++i)
            text += "ab\r\n\r\n\nc\r"[random() % 9];
        files.push_back(folder.write("txt" + std::to_string(round), text));
    }
    for (const fs::path& path : files) {
        const Lines lines = linesInMemory(test::readFile(path));
        IndexedTextFile file{FolderItem(path)};
        expectPlaces(file.item(), placesByLine(test::readFile(path)));
        if (&path == &files.front())
            file.findLines();
        for (int question = 0; question < 60; ++question) {
            const std::uint64_t number = random() % (lines.size() + 3);
            const auto answer = file.line(number);
            const bool found = number > 0 && number <= lines.size();
            EXPECT_EQ(answer.status == IndexedTextFile::Status::Found, found) << number;
            EXPECT_EQ(answer.text, found ? lines[number - 1] : "") << number;
        }
    }
}

TEST(IndexedTextFile, ReadsAnEditedFileAgain) {
    const TempFolder folder;
    IndexedTextFile file{FolderItem(folder.at("txt"))};
    for (const auto& [text, last] : {std::pair{"a\nb\nc\n", "c"}, {"aa\nb\nC\n", "C"}, {"x\ny\nz w\n", "z w"}}) {
        folder.write("txt", text);
        EXPECT_EQ(file.line(3).text, last);
    }
    folder.write("txt", "x\ny zwv\n"); // in place, at the same length, within the tick of the clock
    EXPECT_EQ(file.line(2).text, "y zwv");
    fs::remove(folder.at("txt"));
    EXPECT_EQ(file.line(1).status, IndexedTextFile::Status::NoFile);
    EXPECT_EQ(IndexedTextFile().line(1).status, IndexedTextFile::Status::NoFile);
    folder.write("txt", "back\n");
    EXPECT_EQ(file.line(1).text, "back");
}

TEST(IndexedTextFile, SeesAnotherFileInItsPlaceEvenAnOldOne) {
    const TempFolder folder;
    IndexedTextFile file{FolderItem(folder.at("txt"))};
    // Each question goes further on than the one before, so that a place of the other file would be used.
    std::uint64_t number = 2;
    for (const char* target : {"/etc/passwd", "/etc/group", "/etc/passwd"}) {
        fs::remove(folder.at("txt"));
        folder.link("txt", target);
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
    folder.fifo("fifo");
    for (const auto& [name, target] : {std::pair{"link", "file"}, {"linkToFifo", "fifo"}, {"loop", "loop"}})
        folder.link(name, target);
    const auto opens = [&](const char* name) { return ReadOnlyFile::open(FolderItem(folder.at(name))).has_value(); };
    EXPECT_TRUE(opens("file") && opens("link"));
    for (const char* name : {"fifo", "linkToFifo", "loop", "missing", "file/inside", ".", "/dev/zero", "/dev/tty"})
        EXPECT_FALSE(opens(name)) << name;
}

TEST(ReadWholeFile, HoldsToItsLimit) {
    const TempFolder folder;
    const FolderItem ten(folder.write("ten", "0123456789"));
    EXPECT_EQ(readWholeFile(ten), "0123456789");
    EXPECT_EQ(readWholeFile(ten, 10), "0123456789");
    EXPECT_FALSE(readWholeFile(ten, 9));
    EXPECT_EQ(readWholeFile(FolderItem(folder.write("none", ""))), "");
    // A file that claims a terabyte is refused before any memory is taken.
    fs::resize_file(folder.write("sparse", ""), std::uintmax_t{1} << 40);
    EXPECT_FALSE(readWholeFile(FolderItem(folder.at("sparse"))));
    EXPECT_TRUE(readWholeFile(FolderItem("/proc/version"))->starts_with("Linux version"));
    EXPECT_FALSE(readWholeFile(FolderItem("/proc/version"), 10));
}

TEST(DiskErrors, AreNoEndOfAFile) {
    const TempFolder folder;
    folder.unreadable("bad");
    const FolderItem bad(folder.at("bad"));
    const auto file = ReadOnlyFile::open(bad);
    char byte = 0;
    EXPECT_FALSE(file->read(0, &byte, 1));
    EXPECT_FALSE(readWholeFile(bad) || readFileStart(*file, 1));
    EXPECT_EQ(readFileIfAny(FolderItem(folder.at("missing"))), "");
    for (const auto& read : std::initializer_list<std::function<void()>>{
             [&] { readFileIfAny(bad); }, [&] { linesInFile(bad); }, [&] { IndexedTextFile(bad).line(1); }}) {
        try {
            read();
            ADD_FAILURE();
        } catch (const NilObjectException& failure) {
            EXPECT_NE(std::string(failure.what()).find("bad\" could not be read: Input/output error"),
                      std::string::npos);
        }
    }
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
