#include "side/DictionaryModule.h"
#include "side/UserDictionary.h"

#include "support/TempFolder.h"
#include "text/NilObjectException.h"

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
    std::function<void()> onYield;

    void message(std::string_view text) override { events.emplace_back(text); }
    void showBar() override { events.emplace_back("<bar>"); }
    void setMaximum(int maximum) override { events.push_back("max " + std::to_string(maximum)); }
    void setValue(int value) override { events.push_back(std::to_string(value)); }
    void yield() override {
        ++yields;
        if (onYield)
            onYield();
    }
};

struct Built {
    test::TempFolder folder;
    RecordedProgress progress;
    BuildResult result;

    explicit Built(const std::string& source) {
        result = buildUserDictionary(FolderItem(folder.write("source.txt", source)), dictionary(), progress,
                                     EarlierPair::Removed);
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
} kSources[] = {
    {"Plain", "b\tsecond\na\tfirst\n", "b\tsecond\na\tfirst\n", "A\t1\nB\t0\n", 2},
    {"Empty", "", "", "", 0},
    {"LastLineWithoutEnd", "b\nA", "b\nA", "A\t1\nB\t0\n", 2},
    {"BlankLineKeepsTheNumbersInStep", "b\n\na\n", "b\n\na\n", "\t1\nA\t2\nB\t0\n", 3},
    {"Homographs", "amo__NUM__1\tx\namo__NUM__2\ty\n", "amo¹\tx\namo²\ty\n", "AMO\t0\nAMO\t1\n", 2},
    {"AllSuperscripts", "a__NUM__1__NUM__2__NUM__3__NUM__4__NUM__5__NUM__6__NUM__7__NUM__8__NUM__9__NUM__0",
     "a¹²³⁴⁵⁶⁷⁸⁹-0", "A\t0\n", 1},
    {"TwelveIsOneAndATwo", "amo__NUM__12", "amo¹2", "AMO\t0\n", 1},
    {"MarkerAtTheStartLeavesNoWord", "__NUM__3x\ty", "³x\ty", "\t0\n", 1},
    {"MarkerInAMeaning", "amo\tsee __NUM__2, a__NUM__b", "amo\tsee ², a-b", "AMO\t0\n", 1},
    {"MarkerInSmallLettersCutsAsWell", "amo__num__2", "amo²", "AMO\t0\n", 1},
    {"OverlappingMarkersGoByTheOrderOfTheTable", "__NUM__NUM__1", "__NUM¹", "\t0\n", 1},
    {"BreaksAndDelimitersStay", "a__BR__b\tc__BR__d__DLM__e", "a__BR__b\tc__BR__d__DLM__e", "A__BR__B\t0\n", 1},
    {"LineEndsStay", "b\r\na\rc\n", "b\r\na\rc\n", "A\t1\nB\t0\nC\t2\n", 3},
    {"ByteOrderMarkBelongsToNoWord",
     "\xEF\xBB\xBF"
     "a\tx\n",
     "\xEF\xBB\xBF"
     "a\tx\n",
     "A\t0\n", 1},
    {"Latin1StaysByteForByte", "caf\xE9\tbar\nok\tna\xEFve\nfine\n", "caf\xE9\tbar\nok\tna\xEFve\nfine\n",
     "CAF\xE9\t0\nFINE\t2\nOK\t1\n", 3, 2},
    {"Latin1BesideAMarker", "caf\xE9__NUM__1\t\xFF\n", "caf\xE9¹\t\xFF\n", "CAF\xE9\t0\n", 1, 1},
    {"NulStays", "a\0b\tc\n"s, "a\0b\tc\n"s, "A\0B\t0\n"s, 1},
    {"WordBeforeItsExtensions", "amor\namo\n", "amor\namo\n", "AMO\t1\nAMOR\t0\n", 2},
    {"KanaAndAccents", "アモ\nÉté\n", "アモ\nÉté\n", "ETE\t1\nあも\t0\n", 2},
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
    const auto build = [&](EarlierPair earlier, const fs::path& desktop) {
        return buildUserDictionary(source, built.dictionary(), built.progress, earlier, FolderItem(desktop));
    };
    fs::remove(built.folder.path() / "Latin/Index.txt");
    EXPECT_TRUE(build(EarlierPair::Refused, {}).earlierRefused);
    EXPECT_FALSE(build(EarlierPair::Saved, built.folder.write("file", "")).ok) << "it cannot be saved there";
    EXPECT_EQ(built.folder.read("Latin/Text.txt"), "old\tx\n");
    EXPECT_TRUE(build(EarlierPair::Saved, built.folder.path() / "Desktop").ok);
    EXPECT_EQ(built.folder.read("Desktop/Latin-Oldversion-0/Text.txt"), "old\tx\n");
    EXPECT_TRUE(build(EarlierPair::Removed, built.folder.path() / "Desktop").ok);
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
        void (*prepare)(const Built&);
        const char* source;
        const char* reason;
    } cases[] = {
        {"MissingSource", nullptr, "none.txt", "could not be read"},
        {"FolderAsSource", nullptr, "Latin", "could not be read"},
        {"FifoAsSource", [](const Built& b) { ::mkfifo((b.folder.path() / "fifo").c_str(), 0600); }, "fifo",
         "could not be read"},
        {"SourceIsTheTextItself", nullptr, "Latin/Text.txt", "is the data file itself"},
        {"LinkToTheTextItself",
         [](const Built& b) { fs::create_symlink(b.folder.path() / "Latin/Text.txt", b.folder.path() / "link"); },
         "link", "is the data file itself"},
        {"FolderInThePlaceOfTheText",
         [](const Built& b) {
             fs::remove(b.folder.path() / "Latin/Text.txt");
             b.folder.write("Latin/Text.txt/kept", "");
         },
         "source.txt", "is a folder"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Built earlier("old\tx\n");
        RecordedProgress progress;
        if (each.prepare != nullptr)
            each.prepare(earlier);
        const BuildResult result = buildUserDictionary(FolderItem(earlier.folder.path() / each.source),
                                                       earlier.dictionary(), progress, EarlierPair::Removed);
        EXPECT_FALSE(result.ok);
        EXPECT_NE(result.reason.find(each.reason), std::string::npos) << result.reason;
        if (fs::is_regular_file(earlier.folder.path() / "Latin/Text.txt")) {
            EXPECT_EQ(earlier.folder.read("Latin/Text.txt"), "old\tx\n");
        }
        EXPECT_EQ(earlier.folder.read("Latin/Index.txt"), "OLD\t0\n");
        EXPECT_EQ(FolderItem(earlier.folder.path() / "Latin").items().size(), 2U);
    }
}

TEST(BuildFailure, WhereTheSourceChangesMeanwhile) {
    Built built("old\tx\n");
    const FolderItem item(built.folder.write("source.txt", "new\ty\n"));
    built.progress.onYield = [&] { built.folder.write("source.txt", "quite another\ty\n"); };
    const BuildResult result = buildUserDictionary(item, built.dictionary(), built.progress, EarlierPair::Removed);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(built.folder.read("Latin/Text.txt"), "old\tx\n");
}

} // namespace
} // namespace velmarin
