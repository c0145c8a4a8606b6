#include "RunCli.h"

#include "support/DictionaryBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using velmarin::test::CliRun;
using velmarin::test::DictionaryBuilder;
using velmarin::test::GroupBuilder;
using velmarin::test::oneBitBmp;
using velmarin::test::runCli;
using velmarin::test::TempFolder;

CliRun check(const TempFolder& folder, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "check");
    return runCli(arguments, {.folder = folder.path()});
}

/// Two entries and a closing one, each on a page of its own, "p1.bmp" to "p3.bmp".
DictionaryBuilder sound() {
    return DictionaryBuilder("D").entries({"alpha", "beta", "zzzz"});
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

struct CheckCase {
    const char* reason;
    DictionaryBuilder dictionary;
    std::string out; ///< what `check D` writes; nothing where the dictionary is sound
};

/// Checks the dictionaries of all rows in one run, and compares the findings of each with its row.
void checkRows(const std::vector<CheckCase>& rows, int status) {
    const TempFolder folder;
    std::vector<std::string> arguments;
    for (const CheckCase& row : rows) {
        row.dictionary.writeTo(folder.path() / row.reason);
        arguments.push_back(row.reason + std::string("/D"));
    }
    const CliRun run = check(folder, arguments);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, status);
    std::map<std::string, std::string> found;
    std::istringstream lines(run.out);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t slash = line.find('/');
        found[line.substr(0, slash)] += line.substr(slash + 1) + "\n";
    }
    for (const CheckCase& row : rows)
        EXPECT_EQ(found[row.reason], row.out) << row.reason;
}

TEST(Check, SoundDictionariesGiveNoFinding) {
    checkRows(
        {{"Plain", sound(), ""},
         {"WithoutAnImageIndex", sound().without("mImg/ImageIndex"), ""},
         {"EqualHeadwords", DictionaryBuilder("D").entries({"a", "A", "á", "zz"}), ""},
         {"OrderOfItsOwnMode", DictionaryBuilder("D").entries({"cuz", "chico", "zz"}).spanish(), ""},
         {"NamesThatDifferInCaseOrComposition",
          DictionaryBuilder("D")
              .entry("a", "P1.BMP")
              .entry("b", "e\xCC\x81.bmp")
              .entry("zz", "P1.BMP")
              .without("mImg/P1.BMP")
              .without("mImg/e\xCC\x81.bmp")
              .picture("p1.bmp")
              .picture("\xC3\xA9.bmp"),
          ""},
         {"ClosingEntryWithoutAPage", DictionaryBuilder("D").entries({"a"}).entry("zz", ""), ""},
         {"ClosingEntryOfANumberedDictionary", DictionaryBuilder("D").entries({"001-01", "999-99"}).format("000-00"),
          ""},
         {"ClosingEntryBeyondAllScripts", DictionaryBuilder("D").entries({"ん", "\U0010FFFD__DLM__end"}), ""},
         {"OtherLineEndsAndAByteOrderMark",
          sound().member("ind", "\xEF\xBB\xBF"
                                "alpha\r\nbeta\rzzzz"),
          ""},
         {"EmptyLinesBehindTheImageIndex", sound().member("mImg/ImageIndex", "2\np1.bmp\np2.bmp\np3.bmp\n\n\n"), ""},
         {"MarksWithoutAComposedForm", DictionaryBuilder("D").entries({"x\xCC\x84", "\xE2\x84\xAB", "\U0010FFFD"}), ""},
         {"LongFormat", sound().member("Format", "000\ntrue\n" + std::string(70'000, 'x')), ""},
         {"FormatWhoseSecondLineEndsWhereReadingDoes",
          sound().member("Format", "000\n" + std::string((1 << 16) - 5, ' ') + "\nx"), ""},
         {"Captions", sound().captions({{"p1.bmp", "1"}, {"p2.bmp", "2"}, {"p3.bmp", "2"}}), ""},
         {"ImageIndexThatIsNotLookedAt",
          sound().captions({{"p1.bmp", "1"}, {"p2.bmp", "2"}, {"p3.bmp", "3"}}).imageIndex({"none.bmp"}), ""}},
        0);
}

TEST(Check, HeadwordsAreInOrder) {
    checkRows(
        {{"OutOfOrder", DictionaryBuilder("D").entries({"re-form", "Reclaim", "re-act", "Ébahi", "zz"}),
          "D/ind\t3\tout of order: \"RE-ACT\" sorts before \"RECLAIM\" of line 2\n"
          "D/ind\t4\tout of order: \"EBAHI\" sorts before \"RE-ACT\" of line 3\n"},
         {"EmptyLineBetweenEntries", DictionaryBuilder("D").entries({"a", "", "b", "zz"}),
          "D/ind\t2\tout of order: \"\" sorts before \"A\" of line 1\n"},
         {"OrderOfAnotherMode", DictionaryBuilder("D").entries({"chico", "cuz", "zz"}).spanish(),
          "D/ind\t2\tout of order: \"CUZ\" sorts before \"CƩICO\" of line 1\n"},
         {"NoClosingEntry", DictionaryBuilder("D").entries({"a", "zygote"}),
          "D/ind\t2\tno closing entry: the last one, \"ZYGOTE\", is never shown; one that sorts after all "
          "others should follow it\n"},
         {"SingleLetterClosesNothing", DictionaryBuilder("D").entries({"a", "z"}),
          "D/ind\t2\tno closing entry: the last one, \"Z\", is never shown; one that sorts after all others "
          "should follow it\n"},
         {"NoEntries", sound().member("ind", "").member("txt", ""), "D/ind\t\thas no entries\n"},
         {"Decomposed", DictionaryBuilder("D").entries({"cafe\xCC\x81__DLM__e\xCC\x81", "d__DLM__e\xCC\x81", "zz"}),
          "D/ind\t1\tis in decomposed Unicode (NFD): input in composed form (NFC), as most keyboards give it, "
          "does not find it\n"},
         {"NotUtf8", sound().member("ind", "alph\xE9\nbeta\nzzzz\n"), "D/ind\t1\tis not UTF-8 from byte 5 on\n"}},
        1);
}

TEST(Check, LinesOfTxtBelongToEntriesAndNameFiles) {
    checkRows(
        {{"TxtIsShorter", sound().member("txt", "<@_p1.bmp_>\n<@_p2.bmp_>\n"),
          "D/ind\t3\tno line of txt belongs to this entry: different lengths (ind has 3, txt 2)\n"},
         {"TxtIsLonger", sound().member("txt", "<@_p1.bmp_>\n<@_p2.bmp_>\n<@_p3.bmp_>\n\n<@_p3.bmp_>\n"),
          "D/txt\t4\tnames no page\n"
          "D/txt\t4\tno entry belongs to this line: different lengths (ind has 3, txt 5)\n"},
         {"LineWithoutAPage", DictionaryBuilder("D").entry("a", "", {"e.bmp"}).entry("zz", "p1.bmp"),
          "D/txt\t1\tnames no page\n"},
         {"LastLineNeedsItsPageWhereNothingCloses", DictionaryBuilder("D").entry("a", "p1.bmp").entry("b", ""),
          "D/ind\t2\tno closing entry: the last one, \"B\", is never shown; one that sorts after all others "
          "should follow it\n"
          "D/txt\t2\tnames no page\n"},
         {"PageWithoutAFileIsReportedOnce",
          DictionaryBuilder("D")
              .entry("a", "p1.bmp")
              .entry("b", "gone.bmp")
              .entry("c", "gone.bmp")
              .entry("zz", "gone.bmp")
              .without("mImg/gone.bmp")
              .imageIndex({"p1.bmp"}),
          "D/txt\t2\tnames \"gone.bmp\", which is not in mImg; 2 more lines name it\n"},
         {"NameThatNoFileCanHave",
          DictionaryBuilder("D")
              .entry("a", "p1.bmp")
              .entry("b", "../ind")
              .entry("zz", "..")
              .without("mImg/../ind")
              .without("mImg/..")
              .member("ind", "a\nb\nzz\n")
              .imageIndex({"p1.bmp"}),
          "D/txt\t2\tnames \"../ind\", which is not in mImg\n"
          "D/txt\t3\tnames \"..\", which is not in mImg\n"},
         {"ErrataWithoutAFile",
          DictionaryBuilder("D")
              .entry("a", "p1.bmp", {"e1.bmp", "e2.bmp"})
              .entry("zz", "p1.bmp", {"e2.bmp"})
              .without("mPimg/e2.bmp"),
          "D/txt\t1\tnames \"e2.bmp\", which is not in mPimg; one more line names it\n"},
         {"ErrataWithoutAFolder",
          DictionaryBuilder("D").entry("a", "p1.bmp", {"e1.bmp"}).entry("zz", "p1.bmp").without("mPimg"),
          "D/txt\t1\tnames \"e1.bmp\", which is not in mPimg\n"},
         {"FolderInPlaceOfAPage",
          DictionaryBuilder("D")
              .entry("a", "p1.bmp")
              .entry("zz", "p2.bmp")
              .without("mImg/p2.bmp")
              .imageIndex({"p1.bmp"})
              .member("mImg/p2.bmp/x", ""),
          "D/txt\t2\tnames \"p2.bmp\", which is not in mImg\n"},
         {"PageOutsideTheImageIndex", sound().imageIndex({"p1.bmp", "p3.bmp"}),
          "D/txt\t2\tnames \"p2.bmp\", which is not in ImageIndex: stepping continues from the first page\n"},
         {"PageThatNoImageIndexWillHold",
          DictionaryBuilder("D").entry("a", "p1.bmp").entry("zz", "p2.scan").without("mImg/ImageIndex"),
          "D/txt\t2\tnames \"p2.scan\", which is not in the page list that is made from the pictures: "
          "stepping continues from the first page\n"},
         {"LineThatIsNotReadToItsEnd",
          sound().member("txt", "<@_p1.bmp_>" + std::string(1 << 24, 'x') + "<^_e.bmp_>\n<@_p2.bmp_>\n<@_p3.bmp_>\n"),
          "D/txt\t1\tis 16 MiB long or longer; only the first 16 MiB are read\n"},
         {"NotUtf8", sound().member("txt", "<@_p1.bmp_>\n\xFF <@_p2.bmp_>\n<@_p3.bmp_>\n"),
          "D/txt\t2\tis not UTF-8 from byte 1 on\n"}},
        1);
}

TEST(Check, ImageIndexHasItsCountAndNamesFiles) {
    checkRows(
        {{"CountOfPagesInPlaceOfTheLast", sound().member("mImg/ImageIndex", "3\np1.bmp\np2.bmp\np3.bmp\n"),
          "D/mImg/ImageIndex\t1\tthe count is \"3\"; it should be 2, the number of pages less one\n"},
         {"MorePagesThanAreUsed",
          sound().member("mImg/ImageIndex", "200000\n" + repeated("p1.bmp\n", 199'999) + "p2.bmp\np3.bmp\n"),
          "D/mImg/ImageIndex\t\thas 200001 pages; only the first 200000 are used\n"},
         {"CountIsMissing", sound().member("mImg/ImageIndex", "p1.bmp\np2.bmp\np3.bmp\n"),
          "D/txt\t1\tnames \"p1.bmp\", which is not in ImageIndex: stepping continues from the first page\n"
          "D/mImg/ImageIndex\t1\t\"p1.bmp\" is not a number; it should be 1, the number of pages less one\n"},
         {"EmptyNameAndANameWithoutAFile", sound().member("mImg/ImageIndex", "4\np1.bmp\n\np2.bmp\np3.bmp\np4.bmp\n"),
          "D/mImg/ImageIndex\t3\tnames no page\n"
          "D/mImg/ImageIndex\t6\tnames \"p4.bmp\", which is not in mImg\n"},
         {"NoPages", sound().member("mImg/ImageIndex", "2\n"),
          "D/txt\t1\tnames \"p1.bmp\", which is not in ImageIndex: stepping continues from the first page\n"
          "D/txt\t2\tnames \"p2.bmp\", which is not in ImageIndex: stepping continues from the first page\n"
          "D/txt\t3\tnames \"p3.bmp\", which is not in ImageIndex: stepping continues from the first page\n"
          "D/mImg/ImageIndex\t1\tlists no pages\n"},
         {"CaptionsPartedByBlanks", sound().member("mImg/ImageIndex2", "2\np1.bmp\t1\np2.bmp 2\np3.bmp\t3\n"),
          "D/txt\t2\tnames \"p2.bmp\", which is not in ImageIndex2: stepping continues from the first page\n"
          "D/mImg/ImageIndex2\t3\thas no caption: a TAB separates name and caption\n"
          "D/mImg/ImageIndex2\t3\tnames \"p2.bmp 2\", which is not in mImg\n"},
         {"NotUtf8", sound().captions({{"p1.bmp", "\xFC"}, {"p2.bmp", "2"}, {"p3.bmp", "3"}}),
          "D/mImg/ImageIndex2\t2\tis not UTF-8 from byte 8 on\n"}},
        1);
}

TEST(Check, PicturesAreDecodedOnceEach) {
    checkRows({{"NamedOrListedOftenReportedOnce",
                DictionaryBuilder("D")
                    .entry("a", "p1.bmp", {"e.bmp"})
                    .entry("b", "p2.bmp")
                    .entry("c", "P2.BMP")
                    .entry("zz", "p2.bmp", {"e.bmp"})
                    .without("mImg/P2.BMP")
                    .picture("p2.bmp", "BM")
                    .picture("p3.bmp", "")
                    .picture("unused.bmp", "BM")
                    .extraPicture("e.bmp", "BM")
                    .imageIndex({"p1.bmp", "p2.bmp", "p3.bmp"}),
                "D/txt\t1\t\"e.bmp\" cannot be decoded: the file ends before the picture begins\n"
                "D/txt\t2\t\"p2.bmp\" cannot be decoded: the file ends before the picture begins\n"
                "D/mImg/ImageIndex\t4\t\"p3.bmp\" cannot be decoded: the file is empty\n"}},
              1);
}

TEST(Check, MembersThatADictionaryNeeds) {
    checkRows(
        {{"NoMark", sound().without("FW"), "D/FW\t\tis missing: groups do not show the dictionary\n"},
         {"MarkAlone", DictionaryBuilder("D").without("ind").without("txt").without("mImg"),
          "D/ind\t\tis missing\nD/txt\t\tis missing\nD/mImg\t\tis missing\n"},
         {"FileInPlaceOfAFolder", sound().without("mImg").member("MIMG", ""), "D/MIMG\t\tis not a folder\n"},
         {"FolderInPlaceOfAFile", sound().without("ind").member("ind/x", ""),
          "D/ind\t\tis not a file that can be read\n"},
         {"NoPicture",
          DictionaryBuilder("D").member("ind", "a\nzz\n").member("txt", "<@_p_>\n\n").without("mImg/ImageIndex"),
          "D/mImg\t\thas neither a picture nor an image index\n"
          "D/txt\t1\tnames \"p\", which is not in mImg\n"},
         {"FormatThatIsNotReadToItsEnd", sound().member("Format", "000\n" + std::string(1 << 16, ' ') + "\n"),
          "D/Format\t2\tgoes beyond 64 KiB; only the first 64 KiB are read\n"},
         {"FormatWhoseFirstLineFillsWhatIsRead", sound().member("Format", std::string((1 << 16) - 1, 'x') + "\ntrue\n"),
          "D/Format\t2\tgoes beyond 64 KiB; only the first 64 KiB are read\n"},
         {"FormatThatIsNotUtf8", sound().member("Format", "000\n\xFF\n"),
          "D/Format\t2\tis not UTF-8 from byte 1 on\n"}},
        1);
}

TEST(CheckCommand, MembersThatAreNotFilesOrHugeAreNotRead) {
    const TempFolder folder;
    const fs::path own = sound().without("txt").writeTo(folder.path());
    ASSERT_EQ(::mkfifo((own / "txt").c_str(), 0600), 0);
    fs::resize_file(own / "ind", std::uintmax_t{1} << 40);
    const CliRun run = check(folder, {"D"});
    EXPECT_EQ(run.out, "D/ind\t\tis longer than 256 MiB, and is not read\n"
                       "D/txt\t\tis not a file that can be read\n");
    EXPECT_EQ(run.status, 1);
}

TEST(CheckCommand, PicturesAreLeftAloneOnRequest) {
    const TempFolder folder;
    sound().picture("p1.bmp", "BM").writeTo(folder.path());
    EXPECT_EQ(check(folder, {"D"}).status, 1);
    const CliRun run = check(folder, {"--no-images", "D"});
    EXPECT_EQ(run.out + run.err, "No problems in 1 dictionary.\n");
    EXPECT_EQ(run.status, 0);
}

TEST(CheckCommand, GroupIsCheckedDictionaryByDictionary) {
    const TempFolder folder;
    const fs::path group = GroupBuilder("G")
                               .dictionary(DictionaryBuilder("B").entries({"b", "a", "zz"}))
                               .dictionary(DictionaryBuilder("A").entries({"z", "y", "zz"}))
                               .dictionary(DictionaryBuilder("C").entries({"a", "zz"}).without("FW"))
                               .alias("Link to B", "B")
                               .writeTo(folder.path());
    fs::create_directories(group / "UserDictionaries/Mine");
    const CliRun run = check(folder, {"G"});
    EXPECT_EQ(run.out, "G/A/ind\t2\tout of order: \"Y\" sorts before \"Z\" of line 1\n"
                       "G/B/ind\t2\tout of order: \"A\" sorts before \"B\" of line 1\n"
                       "G/C/FW\t\tis missing: groups do not show the dictionary\n");
    EXPECT_EQ(run.status, 1);
}

TEST(CheckCommand, ADictionaryNamedLikeAMemberLeavesItsGroupAGroup) {
    const TempFolder folder;
    for (const char* name : {"ind", "mImg", "FW"})
        DictionaryBuilder(name).entries({"a", "zz"}).writeTo(folder.path() / "G");
    fs::create_directories(folder.path() / "G/UserDictionaries/ind");
    sound().writeTo(folder.path() / "Empty");
    fs::create_directories(folder.path() / "Empty/ind");
    const CliRun run = check(folder, {"G", "Empty"});
    EXPECT_EQ(run.out + run.err, "No problems in 4 dictionaries.\n");
    EXPECT_EQ(run.status, 0);
}

TEST(CheckCommand, OtherFilesArePassedOverUnlessNothingElseIsNamed) {
    const TempFolder folder;
    const fs::path group = GroupBuilder("G").dictionary(sound()).preferences("G\t0\t\n").writeTo(folder.path());
    fs::create_directories(group / "UserDictionaries/ind");
    const std::string notes = "G/UserDictionaries: neither a dictionary nor a group that holds one";
    const CliRun some = check(folder, {"G/D", "G/DictionaryPreferences.txt", "G/UserDictionaries", "G"});
    EXPECT_EQ(some.out, "No problems in 1 dictionary.\n");
    EXPECT_EQ(some.err, "velmarin-cli: G/DictionaryPreferences.txt: neither a dictionary nor a group that holds one, "
                        "passed over\nvelmarin-cli: " +
                            notes + ", passed over\n");
    EXPECT_EQ(some.status, 0);
    const CliRun none = check(folder, {"G/UserDictionaries"});
    EXPECT_EQ(none.out + none.err, "velmarin-cli: " + notes + "\n");
    EXPECT_EQ(none.status, 2);
}

TEST(CheckCommand, ArgumentThatCannotBeCheckedDoesNotStopTheOthers) {
    const TempFolder folder;
    DictionaryBuilder("D").entries({"b", "a", "zz"}).writeTo(folder.path());
    const CliRun run = check(folder, {"none", "D"});
    EXPECT_EQ(run.out, "D/ind\t2\tout of order: \"A\" sorts before \"B\" of line 1\n");
    EXPECT_EQ(run.err, "velmarin-cli: none: No such file or directory\n");
    EXPECT_EQ(run.status, 2);
}

/// The order of the lines, not the order in which the threads end.
TEST(CheckCommand, ManyPicturesAreReportedInTheOrderOfTheirLines) {
    const TempFolder folder;
    DictionaryBuilder dictionary("D");
    std::string expected;
    for (int i = 1000; i < 1200; ++i) {
        const std::string page = "p" + std::to_string(i) + ".bmp";
        dictionary.entry("w" + std::to_string(i), page);
        if (i % 3 == 0) {
            dictionary.picture(page, "BM");
            expected += "D/txt\t" + std::to_string(i - 999) + "\t\"" + page +
                        "\" cannot be decoded: the file ends before the picture begins\n";
        } else {
            dictionary.picture(page, oneBitBmp(300, 300));
        }
    }
    dictionary.entry("zz", "p1000.bmp").writeTo(folder.path());
    EXPECT_EQ(check(folder, {"D"}).out, expected);
}

} // namespace
