#include "side/DictionaryModule.h"
#include "side/UserDictionary.h"

#include "support/TempFolder.h"

#include <filesystem>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class RecordedProgress : public ProgressPort {
  public:
    std::vector<std::string> events;
    int yields = 0;
    std::function<void()> onYield = [] {};

    void message(std::string_view text) override { events.emplace_back(text); }
    void showBar() override { events.emplace_back("<bar>"); }
    void setMaximum(int maximum) override { events.push_back("max " + std::to_string(maximum)); }
    void setValue(int value) override { events.push_back(std::to_string(value)); }
    void yield() override {
        ++yields;
        onYield();
    }
};

struct Built {
    test::TempFolder folder;
    RecordedProgress progress;
    BuildResult result;

    explicit Built(const std::string& source) {
        result = buildUserDictionary(FolderItem(folder.write("source.txt", source)), dictionary(), progress,
                                     ExistingDictionary::Remove);
    }
    FolderItem dictionary() const {
        fs::create_directories(folder.path() / "Latin");
        return FolderItem(folder.path() / "Latin");
    }
};

const struct {
    const char* name;
    std::string source;
    std::string text;
    std::string index;
    int lines;
    int notUtf8 = 0;
} kSources[] = {{"Empty", "", "", "", 0},
                {"LastLineWithoutEnd", "b\nA", "b\nA", "A\t1\nB\t0\n", 2},
                {"BlankLineKeepsTheNumbersInStep", "b\n\na\n", "b\n\na\n", "\t1\nA\t2\nB\t0\n", 3},
                {"Homographs", "amo__NUM__1\tx\namo__NUM__2\ty\n", "amo¹\tx\namo²\ty\n", "AMO\t0\nAMO\t1\n", 2},
                {"AllSuperscripts", "a__NUM__1__NUM__2__NUM__3__NUM__4__NUM__5__NUM__6__NUM__7__NUM__8__NUM__9__NUM__0",
                 "a¹²³⁴⁵⁶⁷⁸⁹-0", "A\t0\n", 1},
                {"MarkerAtTheStartLeavesNoWord", "__NUM__3x\ty", "³x\ty", "\t0\n", 1},
                {"MarkerInSmallLettersCutsAsWell", "amo__num__2", "amo²", "AMO\t0\n", 1},
                {"OverlappingMarkersGoByTheOrderOfTheTable", "__NUM__NUM__1", "__NUM¹", "\t0\n", 1},
                {"LineEndsStay", "b\r\na\rc\n", "b\r\na\rc\n", "A\t1\nB\t0\nC\t2\n", 3},
                {"ByteOrderMarkBelongsToNoWord",
                 "\xEF\xBB\xBF"
                 "a\tx\n",
                 "\xEF\xBB\xBF"
                 "a\tx\n",
                 "A\t0\n", 1},
                {"Latin1StaysByteForByte", "caf\xE9\tbar\nok\tna\xEFve\nfine\n", "caf\xE9\tbar\nok\tna\xEFve\nfine\n",
                 "CAF\xE9\t0\nFINE\t2\nOK\t1\n", 3, 2},
                {"NulStays", "a\0b\tc\n"s, "a\0b\tc\n"s, "A\0B\t0\n"s, 1},
                {"WordBeforeItsExtensions", "amor\namo\n", "amor\namo\n", "AMO\t1\nAMOR\t0\n", 2},
                {"TenBeforeTwo", "a\na\na\na\na\na\na\na\na\na\na\na\n", "a\na\na\na\na\na\na\na\na\na\na\na\n",
                 "A\t0\nA\t1\nA\t10\nA\t11\nA\t2\nA\t3\nA\t4\nA\t5\nA\t6\nA\t7\nA\t8\nA\t9\n", 12}};

TEST(BuildingAUserDictionary, WritesTextAndIndex) {
    for (const auto& tested : kSources) {
        SCOPED_TRACE(tested.name);
        const Built built(tested.source);
        ASSERT_TRUE(built.result.ok) << built.result.reason;
        EXPECT_EQ(built.folder.read("Latin/Text.txt"), tested.text);
        EXPECT_EQ(built.folder.read("Latin/Index.txt"), tested.index);
        EXPECT_EQ(built.result.lines, tested.lines);
        EXPECT_EQ(built.result.linesNotUtf8, tested.notUtf8);
        EXPECT_EQ(FolderItem(built.folder.path() / "Latin").items().size(), 2U);
    }
}

TEST(BuildProgress, IsReportedInTheOrderOfThePasses) {
    std::string source;
    for (int line = 0; line < 2500; ++line)
        source += "x\n";
    const Built built(source);
    EXPECT_EQ(built.progress.events,
              (std::vector<std::string>{"I'm counting the lines of the data.", "<bar>",
                                        "I'm making the word for sorting and searching.", "max 2500", "0", "1000",
                                        "2000", "2500", "I'm making the index data.", "max 2499", "0", "2000",
                                        "I'm sorting the index data. The progress bar looks frozen.", "2499",
                                        "Now I'm writing data.", "0", "2000", "2499", ""}));
    EXPECT_GT(built.progress.yields, 3 * 2500);
}

TEST(BuildAgain, OneFileOfAnEarlierPairIsRefusedOrSavedToo) {
    Built built("old\tx\n");
    const FolderItem source(built.folder.write("source.txt", "new\ty\n"));
    const auto build = [&](ExistingDictionary earlier, const fs::path& desktop) {
        return buildUserDictionary(source, built.dictionary(), built.progress, earlier, FolderItem(desktop));
    };
    fs::remove(built.folder.path() / "Latin/Index.txt");
    EXPECT_TRUE(build(ExistingDictionary::Refuse, {}).earlierRefused);
    EXPECT_FALSE(build(ExistingDictionary::BackUp, built.folder.write("file", "")).ok) << "it cannot be saved there";
    EXPECT_EQ(built.folder.read("Latin/Text.txt"), "old\tx\n");
    EXPECT_TRUE(build(ExistingDictionary::BackUp, built.folder.path() / "Desktop").ok);
    EXPECT_EQ(built.folder.read("Desktop/Latin-Oldversion-0/Text.txt"), "old\tx\n");
    EXPECT_TRUE(build(ExistingDictionary::Remove, built.folder.path() / "Desktop").ok);
    EXPECT_EQ(FolderItem(built.folder.path() / "Desktop").items().size(), 1U);
    EXPECT_EQ(built.dictionary().items().size(), 2U);
}

TEST(BuildOfALongSource, IsTheSameWhereverItsPiecesEnd) {
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    for (const std::string end : {"\n", "\r", "\r\n"})
        for (const std::size_t first : {kPiece - 1, kPiece, 2 * kPiece + 7}) {
            std::string source = std::string(first, '-') + end, text = source;
            for (int line = 1; line <= 1200; ++line) {
                source += "a__NUM__1" + std::string(1000, '-') + end;
                text += "a¹" + std::string(1000, '-') + end;
            }
            const Built built(source);
            EXPECT_EQ(built.result.lines, 1201);
            EXPECT_TRUE(built.folder.read("Latin/Text.txt") == text);
        }
}

TEST(BuildRefused, LeavesAnEarlierDictionaryAsItIs) {
    const struct {
        const char* name;
        void (*prepare)(const fs::path& folder);
        const char* source;
        const char* reason;
    } cases[] = {
        {"MissingSource", [](const fs::path&) {}, "none.txt", "none.txt\" could not be read"},
        {"FolderAsSource", [](const fs::path&) {}, "Latin", "Latin\" could not be read"},
        {"FifoAsSource", [](const fs::path& f) { ::mkfifo((f / "fifo").c_str(), 0600); }, "fifo", "could not be read"},
        {"SourceIsTheTextItself", [](const fs::path&) {}, "Latin/Text.txt", "is the data file itself"},
        {"LinkToTheTextItself", [](const fs::path& f) { fs::create_symlink(f / "Latin/Text.txt", f / "link"); }, "link",
         "is the data file itself"},
        {"FolderInThePlaceOfTheText",
         [](const fs::path& f) {
             fs::rename(f / "Latin/Text.txt", f / "kept");
             fs::create_directory(f / "Latin/Text.txt");
         },
         "source.txt", "Text.txt\" is a folder"},
        {"SourceChangesMeanwhile", [](const fs::path&) {}, "changing.txt", "was changed"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        Built earlier("old\tx\n");
        earlier.folder.write("changing.txt", "new\ty\n");
        earlier.progress.onYield = [&] { earlier.folder.write("changing.txt", "quite another\ty\n"); };
        each.prepare(earlier.folder.path());
        const BuildResult result =
            buildUserDictionary(FolderItem(earlier.folder.path() / each.source), earlier.dictionary(), earlier.progress,
                                ExistingDictionary::Remove);
        EXPECT_FALSE(result.ok);
        EXPECT_NE(result.reason.find(each.reason), std::string::npos) << result.reason;
        const bool isText = fs::is_regular_file(earlier.folder.path() / "Latin/Text.txt");
        EXPECT_EQ(earlier.folder.read(isText ? "Latin/Text.txt" : "kept"), "old\tx\n");
        EXPECT_EQ(earlier.folder.read("Latin/Index.txt"), "OLD\t0\n");
        EXPECT_EQ(FolderItem(earlier.folder.path() / "Latin").items().size(), 2U);
    }
}

} // namespace
} // namespace velmarin
