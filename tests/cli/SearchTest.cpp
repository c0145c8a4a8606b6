#include "RunCli.h"

#include "support/DictionaryBuilder.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <filesystem>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using velmarin::test::CliRun;
using velmarin::test::DictionaryBuilder;
using velmarin::test::GroupBuilder;
using velmarin::test::runCli;
using velmarin::test::TempFolder;

/// Three plain words with errata, a Spanish one, a numbered one, and one that the preferences list in vain.
void writeGroup(const fs::path& folder) {
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("Plain")
                        .entry("aba", "p1.bmp")
                        .entry("abb__DLM__noun", "p2.bmp", {"e1.bmp", "e2.bmp"})
                        .entry("abd", "")
                        .entry("abe", "gone.bmp")
                        .entry("zzzz", "p3.bmp")
                        .without("mImg/gone.bmp"))
        .dictionary(DictionaryBuilder("Spanish").entries({"caza", "cuz", "Chico", "dar", "zz"}).spanish())
        .dictionary(DictionaryBuilder("Broken").without("txt"))
        .preferences("\t0\t\nPlain\t0\nSpanish\t0\nBroken\t0\n")
        .writeTo(folder);
    GroupBuilder("Numbered")
        .dictionary(DictionaryBuilder("Numbers").entries({"001", "002", "010", "999"}).format("000", true))
        .dictionary(DictionaryBuilder("Words").entries({"a", "zz"}))
        .preferences("\t0\t\nNumbers\t0\nWords\t0\n")
        .writeTo(folder);
}

const struct {
    const char* reason;
    std::vector<std::string> arguments;
    std::string input;
    std::string out;
    int status;
} kSearchCases[] = {
    {"HitWithErrata",
     {"G", "ABC"},
     "",
     "ABC\tPlain\thit\tp2.bmp\te1.bmp\te2.bmp\nABC\tSpanish\tbefore\t\nABC\tBroken\tafter\t\n",
     0},
    {"LineWithoutAPageIsAHitWithoutOne",
     {"G", "abd"},
     "",
     "abd\tPlain\thit\t\nabd\tSpanish\tbefore\t\nabd\tBroken\tafter\t\n",
     0},
    {"LastEntryIsNeverShown",
     {"G", "zzzz"},
     "",
     "zzzz\tPlain\tafter\t\nzzzz\tSpanish\tafter\t\nzzzz\tBroken\tafter\t\n",
     1},
    {"EmptyWordComesFirstOfAll", {"G", ""}, "", "\tPlain\tbefore\t\n\tSpanish\tbefore\t\n\tBroken\tafter\t\n", 1},
    {"TabAppliesTheModeToTheWord",
     {"G", "chico"},
     "",
     "chico\tPlain\thit\tgone.bmp\nchico\tSpanish\thit\tp3.bmp\nchico\tBroken\tafter\t\n",
     0},
    {"ListDoesNot",
     {"--list", "G", "chico"},
     "",
     "chico\tPlain\thit\tgone.bmp\nchico\tSpanish\thit\tp1.bmp\nchico\tBroken\tafter\t\n",
     0},
    {"IndependentInFrontIsSearchedAlone", {"Numbered", "9"}, "", "9\tNumbers\thit\tp2.bmp\n9\tWords\tskipped\t\n", 0},
    {"IndependentBehindIsNotSearched",
     {"--front", "1", "Numbered", "b"},
     "",
     "b\tNumbers\tskipped\t\nb\tWords\thit\tp1.bmp\n",
     0},
    {"ListKnowsNoIndependence", {"--list", "Numbered", "2"}, "", "2\tNumbers\thit\tp2.bmp\n2\tWords\tbefore\t\n", 0},
    {"WordsComeInTurnFromInput",
     {"--front=1", "Numbered"},
     "b\r\n\nc",
     "b\tNumbers\tskipped\t\nb\tWords\thit\tp1.bmp\n"
     "\tNumbers\tskipped\t\n\tWords\tbefore\t\n"
     "c\tNumbers\tskipped\t\nc\tWords\thit\tp1.bmp\n",
     0},
    {"NoWordAtAll", {"G"}, "", "", 1}};

TEST(Search, GivesARecordForEachWordAndDictionary) {
    for (const auto& each : kSearchCases) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        writeGroup(folder.path());
        std::vector<std::string> arguments = {"search"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const CliRun run = runCli(arguments, {.folder = folder.path(), .input = each.input});
        EXPECT_EQ(run.out, each.out);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.status, each.status);
    }
}

TEST(SearchJson, TellsThePlaceToo) {
    const struct {
        const char* reason;
        std::string word, dictionary;
        std::string record; ///< with "~" for the folder of the group
    } rows[] = {{"HitBetweenTwoHeadwordsAsTheyStand", "ABC", "Plain",
                 R"({"word":"ABC","dictionary":"Plain","outcome":"hit","page":"p2.bmp","path":"~/Plain/mImg/p2.bmp",)"
                 R"("errata":["e1.bmp","e2.bmp"],"line":2,"headword_before":"abb","headword_after":"abd"})"},
                {"PageWithoutAFileHasNoPath", "abe", "Plain",
                 R"({"word":"abe","dictionary":"Plain","outcome":"hit","page":"gone.bmp","path":null,)"
                 R"("errata":[],"line":4,"headword_before":"abe","headword_after":"zzzz"})"},
                {"BeforeTheFirst", "", "Spanish",
                 R"({"word":"","dictionary":"Spanish","outcome":"before","page":null,"path":null,)"
                 R"("errata":[],"line":null,"headword_before":null,"headword_after":"caza"})"},
                {"AfterTheLast", "zzzzz", "Plain",
                 R"({"word":"zzzzz","dictionary":"Plain","outcome":"after","page":null,"path":null,)"
                 R"("errata":[],"line":null,"headword_before":"zzzz","headword_after":null})"},
                {"DictionaryThatDoesNotLoad", "a", "Broken",
                 R"({"word":"a","dictionary":"Broken","outcome":"after","page":null,"path":null,)"
                 R"("errata":[],"line":null,"headword_before":null,"headword_after":null})"},
                {"BytesThatAreNoUtf8AreReplacedAndControlCharactersAreNot", "a\xFF\tb", "Broken",
                 R"({"word":"a)"
                 "\xEF\xBF\xBD"
                 R"(\tb","dictionary":"Broken","outcome":"after","page":null,"path":null,)"
                 R"("errata":[],"line":null,"headword_before":null,"headword_after":null})"}};
    const TempFolder folder;
    writeGroup(folder.path());
    std::vector<std::string> arguments = {"search", "--json", "G"};
    for (const auto& row : rows)
        arguments.push_back(row.word);
    const CliRun run = runCli(arguments, {.folder = folder.path()});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    std::istringstream lines(run.out);
    const std::string own = (folder.path() / "G").string();
    for (const auto& row : rows) {
        std::string found;
        for (int dictionary = 0; dictionary < 3; ++dictionary) {
            std::string line;
            std::getline(lines, line);
            if (nlohmann::json::parse(line).at("dictionary") == row.dictionary)
                found = line;
        }
        if (const std::size_t at = found.find(own); at != std::string::npos)
            found.replace(at, own.size(), "~");
        EXPECT_EQ(found, row.record) << row.reason;
    }
}

TEST(SearchFailure, TxtThatCannotBeReadIsReportedOnce) {
    const TempFolder folder;
    const fs::path group =
        GroupBuilder("G").dictionary(DictionaryBuilder("D").entries({"a", "zz"}).without("txt")).writeTo(folder.path());
    fs::create_directory(group / "D/txt");
    const CliRun run = runCli({"search", "G", "a", "b"}, {.folder = folder.path()});
    EXPECT_EQ(run.out, "a\tD\thit\t\nb\tD\thit\t\n");
    EXPECT_EQ(run.err, "velmarin-cli: G/D: NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray\n");
    EXPECT_EQ(run.status, 2);
}

TEST(SearchFailure, NothingIsWrittenIntoTheDictionaries) {
    const TempFolder folder;
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("D").entries({"a", "zz"}).without("mImg/ImageIndex"))
        .writeTo(folder.path());
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"search", "G", "a"},
                                                      {"search", "--json", "G", "a"},
                                                      {"dictionaries", "G"},
                                                      {"check", "G"}})
        EXPECT_EQ(runCli(arguments, {.folder = folder.path()}).status, 0);
    EXPECT_FALSE(fs::exists(folder.path() / "G/D/mImg/ImageIndex"));
    EXPECT_FALSE(fs::exists(folder.path() / "G/DictionaryPreferences.txt"));
}

} // namespace
