#include "CliTest.h"

#include "support/DictionaryBuilder.h"

#include <nlohmann/json.hpp>

#include <sstream>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// "G" has plain words with errata, Spanish ones, and a dictionary that does not load; "Numbered" an independent one.
class SearchCommand : public CliTest {
  protected:
    SearchCommand() {
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
    const CliCase cases[] = {
        {"errata", "search G ABC", records("ABC", {"Plain\thit\tp2.bmp\te1.bmp\te2.bmp", "Spanish\tbefore\t", broken})},
        {"no page", "search G abd", records("abd", {"Plain\thit\t", "Spanish\tbefore\t", broken})},
        {"last entry", "search G zzzz", records("zzzz", {"Plain\tafter\t", "Spanish\tafter\t", broken}), "", 1},
        {"empty word", {"search", "G", ""}, records("", {"Plain\tbefore\t", "Spanish\tbefore\t", broken}), "", 1},
        {"tabs apply the mode to the word", "search G chico",
         records("chico", {"Plain\thit\tgone.bmp", "Spanish\thit\tp3.bmp", broken})},
        {"a list does not", "search --list G chico",
         records("chico", {"Plain\thit\tgone.bmp", "Spanish\thit\tp1.bmp", broken})},
        {"independent, in front", "search Numbered 9", records("9", {"Numbers\thit\tp2.bmp", "Words\tskipped\t"})},
        {"independent, not in front", "search --front 1 Numbered b",
         records("b", {"Numbers\tskipped\t", "Words\thit\tp1.bmp"})},
        {"a list has no independence", "search --list Numbered 2",
         records("2", {"Numbers\thit\tp2.bmp", "Words\tbefore\t"})},
        {"input", "search --front=1 Numbered",
         records("b", {"Numbers\tskipped\t", "Words\thit\tp1.bmp"}) +
             records("", {"Numbers\tskipped\t", "Words\tbefore\t"}),
         "", 0, "b\r\n\n"},
        {"no words", "search G", "", "", 1}};
    for (const CliCase& each : cases)
        expectRun(each);
}

TEST_F(SearchCommand, JsonHasThePlaceToo) {
    const struct {
        std::string word, dictionary;
        std::string rest; ///< the record after these two, with "~" for the folder of the group
    } rows[] = {{"ABC", "Plain",
                 R"("hit","page":"p2.bmp","path":"~/Plain/mImg/p2.bmp","errata":["e1.bmp","e2.bmp"],)"
                 R"("line":2,"headword_before":"abb","headword_after":"abd"})"},
                {"abe", "Plain",
                 R"("hit","page":"gone.bmp","path":null,"errata":[],)"
                 R"("line":4,"headword_before":"abe","headword_after":"zzzz"})"},
                {"", "Spanish",
                 R"("before","page":null,"path":null,"errata":[],)"
                 R"("line":null,"headword_before":null,"headword_after":"caza"})"},
                {"zzzzz", "Plain",
                 R"("after","page":null,"path":null,"errata":[],)"
                 R"("line":null,"headword_before":"zzzz","headword_after":null})"},
                {"a\xFF\tb", "Broken",
                 R"("after","page":null,"path":null,"errata":[],)"
                 R"("line":null,"headword_before":null,"headword_after":null})"}};
    Arguments arguments = {"search", "--json", "G"};
    for (const auto& row : rows)
        arguments.push_back(row.word);
    const ProgramRun found = run(arguments);
    EXPECT_EQ(found.err, "");
    EXPECT_EQ(found.status, 0);
    std::istringstream lines(found.out);
    const std::string group = folder_.at("G").string();
    for (const auto& row : rows) {
        std::string record;
        for (int dictionary = 0; dictionary < 3; ++dictionary) {
            std::string line;
            std::getline(lines, line);
            if (nlohmann::json::parse(line).at("dictionary") == row.dictionary)
                record = line;
        }
        if (const std::size_t at = record.find(group); at != std::string::npos)
            record.replace(at, group.size(), "~");
        const std::string word = row.dictionary == "Broken" ? "a\xEF\xBF\xBD\\tb" : row.word;
        EXPECT_EQ(record,
                  R"({"word":")" + word + R"(","dictionary":")" + row.dictionary + R"(","outcome":)" + row.rest);
    }
}

TEST_F(SearchCommand, TxtThatCannotBeReadIsReportedOnce) {
    DictionaryBuilder("D").entries({"a", "zz"}).without("txt").writeTo(folder_.at("Bad"));
    fs::create_directory(folder_.at("Bad/D/txt"));
    expectRun({"txt is a folder", "search Bad a b", "a\tD\thit\t\nb\tD\thit\t\n",
               "Bad/D: NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray", 2});
}

} // namespace
} // namespace velmarin::test
