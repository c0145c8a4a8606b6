#include "side/UserDictionary.h"

#include "SideFixture.h"
#include "side/DictionaryModule.h"
#include "side/UserDictionaryDisplay.h"

#include "support/CollectedMessages.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using Lines = std::vector<std::string>;

class RecordedProgress : public ProgressPort {
  public:
    Lines events;
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
        folder.write("source", source);
        fs::create_directory(folder.at("Latin"));
        build(ExistingDictionary::Remove);
    }
    bool build(ExistingDictionary earlier, const fs::path& backups = {}) {
        result = buildUserDictionary(FolderItem(folder.at("source")), FolderItem(folder.at("Latin")), progress, earlier,
                                     FolderItem(backups));
        return result.ok;
    }
    std::size_t itemsIn(const char* name) const { return FolderItem(folder.at(name)).items().size(); }
};

TEST(BuildingAUserDictionary, WritesTextAndIndex) {
    const struct {
        const char* name;
        std::string source;
        std::string index;
        int lines;
        std::string text{}; ///< empty: as the source
        int notUtf8 = 0;
    } cases[] = {
        {"Empty", "", "", 0},
        {"LastLineWithoutEnd", "b\nA", "A\t1\nB\t0\n", 2},
        {"BlankLineKeepsTheNumbersInStep", "b\n\na\n", "\t1\nA\t2\nB\t0\n", 3},
        {"AllSuperscripts", "a__NUM__1__NUM__2__NUM__3__NUM__4__NUM__5__NUM__6__NUM__7__NUM__8__NUM__9__NUM__0",
         "A\t0\n", 1, "a¹²³⁴⁵⁶⁷⁸⁹-0"},
        {"MarkerAtTheStartLeavesNoWord", "__NUM__3x\ty", "\t0\n", 1, "³x\ty"},
        {"MarkerInSmallLettersCutsAsWell", "amo__num__2", "AMO\t0\n", 1, "amo²"},
        {"OverlappingMarkersGoByTheOrderOfTheTable", "__NUM__NUM__1", "\t0\n", 1, "__NUM¹"},
        {"LineEndsStay", "b\r\na\rc\n", "A\t1\nB\t0\nC\t2\n", 3},
        {"ByteOrderMarkBelongsToNoWord", "\xEF\xBB\xBFz\tx\n", "Z\t0\n", 1},
        {"Latin1StaysByteForByte", "caf\xE9\tbar\nok\tna\xEFve\nfine\n", "CAF\xE9\t0\nFINE\t2\nOK\t1\n", 3, "", 2},
        {"NulStays", "a\0b\tc\n"s, "A\0B\t0\n"s, 1},
        {"WordBeforeItsExtensions", "amor\namo\n", "AMO\t1\nAMOR\t0\n", 2},
        {"TenBeforeTwo", "a\na\na\na\na\na\na\na\na\na\na\n",
         "A\t0\nA\t1\nA\t10\nA\t2\nA\t3\nA\t4\nA\t5\nA\t6\nA\t7\nA\t8\nA\t9\n", 11}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Built built(each.source);
        ASSERT_TRUE(built.result.ok) << built.result.reason;
        EXPECT_EQ(built.folder.read("Latin/Text.txt"), each.text.empty() ? each.source : each.text);
        EXPECT_EQ(built.folder.read("Latin/Index.txt"), each.index);
        EXPECT_EQ(built.result.lines, each.lines);
        EXPECT_EQ(built.result.linesNotUtf8, each.notUtf8);
        EXPECT_EQ(built.itemsIn("Latin"), 2U);
    }
}

TEST(BuildProgress, IsReportedInTheOrderOfThePasses) {
    std::string source;
    for (int line = 0; line < 2500; ++line)
        source += "x\n";
    const Built built(source);
    EXPECT_EQ(built.progress.events,
              (Lines{"I'm counting the lines of the data.", "<bar>", "I'm making the word for sorting and searching.",
                     "max 2500", "0", "1000", "2000", "2500", "I'm making the index data.", "max 2499", "0", "2000",
                     "I'm sorting the index data. The progress bar looks frozen.", "2499", "Now I'm writing data.", "0",
                     "2000", "2499", ""}));
    EXPECT_GT(built.progress.yields, 3 * 2500);
}

TEST(BuildAgain, OneFileOfAnExistingDictionaryIsRefusedOrSavedToo) {
    Built built("old\tx\n");
    built.folder.write("source", "new\ty\n");
    fs::remove(built.folder.at("Latin/Index.txt"));
    EXPECT_FALSE(built.build(ExistingDictionary::Refuse));
    EXPECT_TRUE(built.result.earlierRefused);
    EXPECT_FALSE(built.build(ExistingDictionary::BackUp, built.folder.write("file", ""))) << "it cannot be saved there";
    EXPECT_EQ(built.folder.read("Latin/Text.txt"), "old\tx\n");
    EXPECT_TRUE(built.build(ExistingDictionary::BackUp, built.folder.at("Desktop")));
    EXPECT_EQ(built.folder.read("Desktop/Latin-Oldversion-0/Text.txt"), "old\tx\n");
    EXPECT_TRUE(built.build(ExistingDictionary::Remove, built.folder.at("Desktop")));
    EXPECT_EQ(built.itemsIn("Desktop"), 1U);
    EXPECT_EQ(built.itemsIn("Latin"), 2U);
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
        void (*prepare)(Built& earlier, const fs::path& source);
        const char* reason;
    } cases[] = {{[](Built&, const fs::path& source) { fs::create_directory(source); }, "could not be read"},
                 {[](Built& earlier, const fs::path& source) { earlier.folder.fifo(source); }, "could not be read"},
                 {[](Built& earlier, const fs::path& source) { earlier.folder.unreadable(source); },
                  "source\" could not be read: Input/output error"},
                 {[](Built& earlier, const fs::path& source) { earlier.folder.link(source, "Latin/Text.txt"); },
                  "is the data file itself"},
                 {[](Built& earlier, const fs::path& source) {
                      earlier.folder.write(source, "new\ty\n");
                      fs::rename(earlier.folder.at("Latin/Text.txt"), earlier.folder.at("kept"));
                      fs::create_directory(earlier.folder.at("Latin/Text.txt"));
                  },
                  "Text.txt\" is a folder"},
                 {[](Built& earlier, const fs::path& source) {
                      earlier.folder.write(source, "new\ty\n");
                      earlier.progress.onYield = [&earlier, source] {
                          earlier.folder.write(source, "quite another\ty\n");
                      };
                  },
                  "was changed"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        Built earlier("old\tx\n");
        fs::remove(earlier.folder.at("source"));
        each.prepare(earlier, earlier.folder.at("source"));
        EXPECT_FALSE(earlier.build(ExistingDictionary::Remove));
        EXPECT_NE(earlier.result.reason.find(each.reason), std::string::npos) << earlier.result.reason;
        EXPECT_EQ(earlier.folder.read(fs::exists(earlier.folder.at("kept")) ? "kept" : "Latin/Text.txt"), "old\tx\n");
        EXPECT_EQ(earlier.folder.read("Latin/Index.txt"), "OLD\t0\n");
        EXPECT_EQ(earlier.itemsIn("Latin"), 2U);
    }
}

TEST(UserSearchWord, IsCutAtTheMarkerAndFolded) {
    DictionaryModule module;
    EXPECT_EQ(module.m__SubMakeSearchWord("Ｊｕｓ　Élan ch__NUM__1b__NUM__2"), "JUS ELAN CH");
    module.pIJUV = true;
    EXPECT_EQ(module.m__SubMakeSearchWord("Julius v"), "IULIUS U");
    module.pIJUV = false;
    module.pSpanish = true;
    EXPECT_EQ(module.m__SubMakeSearchWord("chillar"), "cʃIlʎAR");
    EXPECT_EQ(module.m__SubSpanish("cʃilʎar", 1), "chillar");
}

TEST(UserMatch, MatchesIn) {
    const struct {
        const char* indexWord;
        const char* searchWord;
        const char* modes; ///< those of 0 to 5 that match
    } cases[] = {{"Amor", "aMOR", "01234"}, {"ÀMOR", "àmor", "01234"},  {"AMORIS", "AMOR", "034"},
                 {"CLAMOR", "AMOR", "134"}, {"CLAMORIS", "AMOR", "34"}, {"AMO", "AMOR", ""},
                 {"AMOR", "^A.+R$", "4"},   {"AMOR", "(", ""},          {"AMOR", "", "014"},
                 {"", "", "0124"}};
    for (const auto& each : cases) {
        std::string modes;
        for (int mode = -1; mode <= 5; ++mode)
            if (DictionaryModule::m__SubMatch(each.indexWord, each.searchWord, mode))
                modes += std::to_string(mode);
        EXPECT_EQ(modes, each.modes) << each.indexWord << " " << each.searchWord;
    }
}

TEST(UserSearch, FindsTheLines) {
    const struct {
        const char* index;
        const char* word;
        Lines found;
        bool indexOnly = false;
    } cases[] = {{"AMO\t2\nB\t1\nAMO\t0\nAMO\t2\n", "amo", {"zero\tm", "two\tm"}},
                 {"AMO\t9\nAMO\t3\n", "amo", {"three"}},
                 {"AMO\t-1\n", "amo", {}},
                 {"AMO\n", "amo", {"zero\tm"}},
                 {"AMO\t1\n", "amo__NUM__7", {"one\tm"}},
                 {"\t1\nAMO\t2\n", "", {"one\tm"}},
                 {"B\t1\rAMO\t2\rC\t0\r", "amo", {"two\tm"}},
                 {"AMO\t07\nB\t2\nAMO\n", "amo", {"07", ""}, true}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.index);
        const test::TempFolder folder;
        folder.write("Index.txt", each.index);
        folder.write("Text.txt", "zero\tm\r\none\tm\rtwo\tm\nthree");
        DictionaryModule module;
        module.pResult = {"of the last search"};
        EXPECT_EQ(module.mSearch(FolderItem(folder.path()), each.word, 2, each.indexOnly), !each.found.empty());
        EXPECT_EQ(module.pResult, each.found);
    }
}

TEST(UserSearch, WithoutATextIsReported) {
    const test::TempFolder folder;
    folder.write("Index.txt", "AMO\t0\n");
    const test::CollectedMessages messages;
    EXPECT_FALSE(DictionaryModule().mSearch(FolderItem(folder.path()), "amo", 2, false));
    EXPECT_EQ(messages.texts.size(), 1U);
}

TEST(UserSearchResult, InAPopUpAddsRowsWithTags) {
    DictionaryModule module;
    module.pResult = {"one__DLM__first", "two"};
    Lines rows;
    const auto addRow = [&](const std::string& caption, const std::string& tag) {
        rows.push_back(caption + "/" + tag);
    };
    mDisplayResult(module, "Mine", true, addRow, nullptr, [&] { rows.emplace_back("yield"); });
    EXPECT_EQ(rows, (Lines{"one/first", "yield", "two/", "yield"}));
}

TEST(MakingAUserDictionary, TellsAndAsks) {
    const struct {
        const char* source; ///< the data file; nullptr: the dialog is cancelled; empty: it is gone
        bool folderChosen;
        std::size_t messages;
        const char* inTheLastButOne;
    } cases[] = {{nullptr, false, 1, ""},
                 {"a\tb\n", false, 2, "Select a data file for a Dictionary. "},
                 {"", true, 3, "Create a folder as new Dictionary."},
                 {"a\tb\n", true, 3, "Create a folder as new Dictionary."},
                 {"\xE9\tb\nc\xE9\n", true, 4, "2 lines of the data are not in UTF-8."}};
    for (const auto& each : cases) {
        test::ModelFixture fixture;
        const fs::path others = fixture.groupFolder.at("UserDictionaries");
        const bool hasSource = each.source != nullptr && *each.source != '\0';
        if (each.source != nullptr)
            fixture.host.files.push_back(fixture.words.at("data"));
        if (hasSource)
            fixture.words.write("data", each.source);
        if (each.folderChosen)
            fixture.host.folders.push_back(others / "New");
        fixture.open().UserDicBT_Action();
        const Lines messages = fixture.host.messages;
        ASSERT_EQ(messages.size(), each.messages);
        EXPECT_TRUE(each.messages == 1 || messages[each.messages - 2].starts_with(each.inTheLastButOne));
        const bool made = hasSource && each.folderChosen;
        EXPECT_EQ(!fixture.host.launched.empty(), made);
        EXPECT_EQ(fs::exists(others / "New"), made) << "it would be listed as a dictionary";
        EXPECT_TRUE(fs::is_directory(others));
        if (each.source == nullptr)
            continue;
        EXPECT_EQ(fixture.host.openedAt, std::vector<fs::path>{others});
        EXPECT_EQ(fixture.host.folderChoices, std::vector{Host::FolderChoice::MayBeNew});
        const Lines& log = fixture.main.log;
        EXPECT_TRUE(!each.folderChosen || made || Lines(log.end() - 2, log.end()) == (Lines{"text ", "no bar"}));
    }
}

class UserDictionaryDialog : public testing::Test, public test::ModelFixture {};

TEST_F(UserDictionaryDialog, WaitsForWhatRunsAndShowsItsProgressInTheMainWindow) {
    host.files.push_back(words.write("data.txt", "b\na\n"));
    words.write("Mine/Text.txt", "precious");
    host.folders.push_back(words.at("Mine"));
    host.onYield = [&] { EXPECT_TRUE(busy.busy()); };
    {
        const Busy guard(busy);
        open().UserDicBT_Action();
        EXPECT_TRUE(main.log.empty());
    }
    runPosted();
    ASSERT_GE(main.log.size(), 5U);
    EXPECT_EQ(Lines(main.log.begin() + 1, main.log.begin() + 5),
              (Lines{"bar", "text I'm making the word for sorting and searching.", "max 2", "value 0"}));
    EXPECT_EQ(Lines(main.log.end() - 2, main.log.end()), (Lines{"text ", "full"}));
    EXPECT_GT(host.yields, 5);
    EXPECT_EQ(words.read("Mine/Text.txt"), "b\na\n");
    EXPECT_EQ(desktop.read("Mine-Oldversion-0/Text.txt"), "precious");
    EXPECT_FALSE(busy.busy());
}

} // namespace
} // namespace velmarin
