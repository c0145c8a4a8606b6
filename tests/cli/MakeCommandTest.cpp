#include "../scan/ScanFiles.h"
#include "CliTest.h"
#include "support/DictionaryBuilder.h"
#include "support/Tree.h"

#include <tiff.h>

namespace velmarin::test {
namespace {

using MakeCommandTest = CliTest;

TEST_F(MakeCommandTest, MakesADictionaryThatCheckPasses) {
    for (const char* page : {"p1.bmp", "p2.bmp", "p10.bmp"})
        folder_.write(std::filesystem::path("scan") / page, oneBitBmp());
    std::filesystem::create_directory(folder_.path() / "G");
    folder_.write("t.csv", "page,first,last,number\np1,Aal,Äther,9\np2,Äther,Esel,\n11,Fuß,Esche,\np4,x,y,\n");
    const Arguments make{"make", "table", "--alike", "ä=ae", "t.csv", "scan", "G/D"};
    expectRun({make,
               "unused\t5\tno page \"p4\"\nmisplaced\tp10.bmp\tEsche\tFuß\t\n"
               "made\tG/D\t10\n",
               "", 1});
    expectRun({"check G/D", "No problems in 1 dictionary.\n"});
    expectRefusals({{make, "\"G/D\": an item of that name is already there"}});
    const std::string hits = run("search G Aal Äther Attik Esel Fuß Fusel").out;
    EXPECT_EQ(hits, "Aal\tD\thit\tp1.bmp\nÄther\tD\thit\tp1.bmp\nAttik\tD\thit\tp2.bmp\nEsel\tD\thit\tp2.bmp\n"
                    "Fuß\tD\thit\tp10.bmp\nFusel\tD\thit\tp2.bmp\n");
}

TEST_F(MakeCommandTest, TakesThePagesOfAFile) {
    const Picture page = printedPage(300, 400, 1, 1);
    folder_.write("scan", tiffOf({page, page}, COMPRESSION_CCITTFAX4));
    folder_.write("t.csv", "page,first,number\np0001,aback,7\n8,abbey,\n");
    expectRun({"make table t.csv scan New/D", "made\tNew/D\t3\n"});
    expectRun({"check New/D", "No problems in 1 dictionary.\n"});
    EXPECT_EQ(run("search New abbot").out, "abbot\tD\thit\tp0002.tif\n");
    EXPECT_TRUE(leftoversIn(folder_.path()).empty());
    folder_.write("scan", "%PDF-1.4\n");
    EXPECT_EQ(run("make table t.csv scan New/E").status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder_.at("New/E")));
}

TEST_F(MakeCommandTest, SaysWhatIsMissing) {
    folder_.write("scan/p1.bmp", oneBitBmp());
    std::filesystem::create_directory(folder_.path() / "G");
    folder_.write("t.csv", "page,word\np1,a\n");
    folder_.write("u.csv", "page,first\np1,a\xff\n");
    folder_.write("w.csv", "\xFF\xFEp");
    folder_.write("v.csv", "page,first\np1,a\n");
    expectRefusals({
        {"make table t.csv scan G/D", "t.csv: its first row needs the columns \"page\" and \"first\" or \"headword\""},
        {"make table u.csv scan G/D", "u.csv: it is not UTF-8"},
        {"make table w.csv scan G/D", "w.csv: it is UTF-16; save it as UTF-8"},
        {"make table --alike a v.csv scan G/D", "--alike: each pair is LETTERS=LETTERS"},
        {"make table v.csv scan G/", "\"G\": a dictionary needs a name"},
    });
}

} // namespace
} // namespace velmarin::test
