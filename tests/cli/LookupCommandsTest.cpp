#include "CliTest.h"

#include "support/DictionaryBuilder.h"

#include <nlohmann/json.hpp>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using KeyCommand = CliTest;
using ListCommands = CliTest;

#define BOM "\xEF\xBB\xBF"

TEST_F(KeyCommand, WritesTheSearchWords) {
    const std::string longLine(200'000, 'x'), longWord(200'000, 'X');
    expectRuns(
        {{"key Straße Ａｂｃ アセ", "STRASSE\nABC\nあセ\n"},
         {"key abbé__DLM__noun", "ABBE\n"},
         {"key --spanish chico LLAMA", "CƩICO\nLʎAMA\n"},
         {"key --ijuv Julius VIVO", "IULIUS\nUIUO\n"},
         {"key chico Julius", "CHICO\nJULIUS\n"},
         {{"key", ""}, "\n"},
         {{"key", "[a,b]", "{}", "++", "key", "-5", "%%", "\x1F"}, "[A,B]\n{}\n++\nKEY\n-5\n%%\n␟\n"},
         {"key a -- -b --ijuv --", "A\n-B\n--IJUV\n--\n"},
         {{"key", "a\tb\nc\rd\x7F"}, "A␉B␊C␍D␡\n"},
         {{"key", "a\xFFz", "\xC3"}, "A\xEF\xBF\xBDZ\n\xEF\xBF\xBD\n"},
         {"key", "A\nB\nC\n\nD\n", "", 0, "a\r\nb\rc\n\nd"},
         {"key", "A\n" BOM "B\n", "", 0, BOM "a\n" BOM "b\n"},
         {"key"},
         {"key", "A␀B\n", "", 0, std::string("a\0b\n", 4)},
         {"key a", "A\n", "", 0, "b\n"},
         {"key", longWord + "\n" + longWord + "Y\n", "", 0, longLine + "\r\n" + longLine + "y"},
         {"key", "A\n", "standard input: a line is longer than a megabyte", 2, "a\n" + std::string(2 << 20, 'x')}});
}

/// Scripts that write to the program by descriptor 3, read from it by 4, and print what they read and its status.
TEST_F(KeyCommand, AnswersEachLineBeforeItWaitsForTheNextAndEndsWithItsReader) {
    const std::pair<std::string, const char*> rows[] = {
        {R"(printf 'é\n' >&3; head -n 1 <&4; printf '\357\273' >&3; printf '\277\r' >&3; head -n 1 <&4)"
         R"(; printf '\nf' >&3; exec 3>&-; cat <&4)",
         "E\n" BOM "\nF\n0\n"},
        {"exec 4<&-; echo a >&3", "141\n"}};
    for (const auto& [script, expected] : rows) {
        const std::string whole = R"(mkfifo in out; "$0" key <in >out & exec 3>in 4<out; rm in out; )" + script;
        const ProgramRun found =
            runProgram({"sh", "-c", whole + "; wait $!; echo $?", VELMARIN_CLI}, {.folder = folder_.path()});
        EXPECT_EQ(found.out, expected);
    }
}

TEST_F(ListCommands, GroupsAreFoldersAndLinksToThemByName) {
    for (const char* name : {"DF/latin", "DF/English", "DF/.hidden", "DF/a\tb", "elsewhere"})
        fs::create_directories(folder_.at(name));
    folder_.write("DF/notes.txt", "");
    folder_.link("DF/Greek", "../elsewhere");
    folder_.link("DF/Broken", "nowhere");
    expectRuns({{"groups DF/", "a␉b\nEnglish\nGreek\nlatin\n"},
                {"groups elsewhere", "", "", 1},
                {"dictionaries elsewhere", "", "", 1}});
}

TEST_F(ListCommands, DictionariesHaveColumnsAndAnOrder) {
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("Zulu").entries({"a", "b", "zz"}))
        .dictionary(DictionaryBuilder("Both").spanish().ijuv())
        .dictionary(DictionaryBuilder("Elements").entries({"001", "999"}).format("0,00", true))
        .dictionary(DictionaryBuilder("Unloaded").without("txt"))
        .dictionary(DictionaryBuilder("Broken").without("ind"))
        .dictionary(DictionaryBuilder("No mark").without("FW"))
        .alias("also Zulu", "Zulu")
        .preferences("Title\t1\t\nZulu\t1\nUnloaded\t0\nGone\t2\n")
        .writeTo(folder_.path());
    folder_.link("link", "G");
    const std::string rows =
        "Zulu\t1\t3\t\nUnloaded\t0\t\t\nBoth\t2\t0\tspanish,ijuv\nElements\t2\t2\tindependent,format=0,00\n";
    for (const std::string& path :
         {std::string("./G//"), std::string("G/Zulu/.."), folder_.at("G").string(), std::string("link")})
        expectRun({{"dictionaries", path}, rows});
    folder_.write("G/Both/.velmarin-1-0.swap/names", "ind");
    expectRun({{"dictionaries", "G"}, rows, "G/Both: an update was interrupted: run the update again"});
    fs::remove_all(folder_.at("G/Both/.velmarin-1-0.swap"));
    fs::create_directory(folder_.at("G/Broken/ind"));
    expectRun({{"dictionaries", "G"}, rows, "The index \"G/Broken/ind\" could not be read: Is a directory", 2});
}

/// "G" has plain words with errata (as "One" has), Spanish ones, and a dictionary that does not load; "Numbered" an
/// independent one.
class SearchCommand : public CliTest {
  protected:
    SearchCommand() {
        const DictionaryBuilder plain = DictionaryBuilder("Plain")
                                            .entry("aba", "p1.bmp")
                                            .entry("abb__DLM__noun", "p2.bmp", {"e1.bmp", "e2.bmp"})
                                            .entry("abd", "")
                                            .entry("abe", "gone.bmp")
                                            .entry("zzzz", "p3.bmp")
                                            .without("mImg/gone.bmp");
        GroupBuilder("One").dictionary(plain).writeTo(folder_.path());
        GroupBuilder("G")
            .dictionary(plain)
            .dictionary(DictionaryBuilder("Spanish").entries({"caza", "cuz", "Chico", "dar", "zz"}).spanish())
            .dictionary(DictionaryBuilder("Broken").without("txt"))
            .preferences("\t0\t\nPlain\t0\nSpanish\t0\nBroken\t0\n")
            .writeTo(folder_.path());
        GroupBuilder("Numbered")
            .dictionary(DictionaryBuilder("Numbers").entries({"001", "002", "010", "999"}).format("000", true))
            .dictionary(DictionaryBuilder("Words").entries({"a", "zz"}))
            .preferences("\t0\t\nNumbers\t0\nWords\t0\n")
            .writeTo(folder_.path());
    }
};

TEST_F(SearchCommand, WritesARecordForEachWordAndDictionary) {
    // The columns of one word: dictionary, outcome, page, errata.
    const auto records = [](const std::string& word, const std::vector<std::string>& columns) {
        std::string all;
        for (const std::string& each : columns)
            all += word + "\t" + each + "\n";
        return all;
    };
    const std::string broken = "Broken\tafter\t";
    expectRuns({{"search G ABC", records("ABC", {"Plain\thit\tp2.bmp\te1.bmp\te2.bmp", "Spanish\tbefore\t", broken})},
                {"search G abd", records("abd", {"Plain\thit\t", "Spanish\tbefore\t", broken})},
                {"search G zzzz", records("zzzz", {"Plain\tafter\t", "Spanish\tafter\t", broken}), "", 1},
                {{"search", "G", ""}, records("", {"Plain\tbefore\t", "Spanish\tbefore\t", broken}), "", 1},
                {"search G chico", records("chico", {"Plain\thit\tgone.bmp", "Spanish\thit\tp3.bmp", broken})},
                {"search --list G chico", records("chico", {"Plain\thit\tgone.bmp", "Spanish\thit\tp1.bmp", broken})},
                {"search Numbered 9", records("9", {"Numbers\thit\tp2.bmp", "Words\tskipped\t"})},
                {"search --front 1 Numbered b", records("b", {"Numbers\tskipped\t", "Words\thit\tp1.bmp"})},
                {"search --list Numbered 2", records("2", {"Numbers\thit\tp2.bmp", "Words\tbefore\t"})},
                {"search --front=1 Numbered",
                 records("b", {"Numbers\tskipped\t", "Words\thit\tp1.bmp"}) +
                     records("", {"Numbers\tskipped\t", "Words\tbefore\t"}),
                 "", 0, "b\r\n\n"},
                {"search G", "", "", 1}});
}

TEST_F(SearchCommand, JsonHasThePlaceToo) {
    GroupBuilder("Off")
        .dictionary(DictionaryBuilder("Broken").without("txt"))
        .preferences("\t0\t\nBroken\t0\n")
        .writeTo(folder_.path());
    using Json = nlohmann::ordered_json;
    const auto record = [](const std::vector<Json>& values) {
        Json all;
        std::size_t next = 0;
        for (const char* name :
             {"word", "dictionary", "outcome", "page", "path", "errata", "line", "headword_before", "headword_after"})
            all[name] = values.at(next++);
        return all.dump() + "\n";
    };
    const std::string image = folder_.at("One/Plain/mImg/p2.bmp");
    const Json null, none = Json::array();
    expectRuns({{{"search", "--json", "One", "ABC", "abe", "", "zzzzz"},
                 record({"ABC", "Plain", "hit", "p2.bmp", image, {"e1.bmp", "e2.bmp"}, 2, "abb", "abd"}) +
                     record({"abe", "Plain", "hit", "gone.bmp", null, none, 4, "abe", "zzzz"}) +
                     record({"", "Plain", "before", null, null, none, null, null, "aba"}) +
                     record({"zzzzz", "Plain", "after", null, null, none, null, "zzzz", null})},
                {{"search", "--json", "Off", "a\xFF\tb"},
                 record({"a\uFFFD\tb", "Broken", "after", null, null, none, null, null, null}),
                 "",
                 1}});
}

TEST_F(SearchCommand, TxtThatCannotBeReadIsReportedOnce) {
    DictionaryBuilder("D").entries({"a", "zz"}).without("txt").writeTo(folder_.at("Bad"));
    fs::create_directory(folder_.at("Bad/D/txt"));
    expectRun({"search Bad a b", "a\tD\thit\t\nb\tD\thit\t\n",
               "Bad/D: NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray", 2});
}

} // namespace
} // namespace velmarin::test
