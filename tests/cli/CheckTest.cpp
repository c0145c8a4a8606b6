#include "CliTest.h"

#include "cli/IndexCheck.h"
#include "support/DictionaryBuilder.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

struct DictionaryCase {
    const char* reason;
    DictionaryBuilder dictionary;
    std::string findings{}; ///< as written, without the folder
};

class Check : public CliTest {
  protected:
    /// Checks all dictionaries in one run.
    void expectFindings(const std::vector<DictionaryCase>& cases) const {
        CliCase whole{{"check"}};
        for (const DictionaryCase& each : cases) {
            const std::string path = each.reason + std::string("/D");
            each.dictionary.writeTo(folder_.at(each.reason));
            whole.arguments.push_back(path);
            std::istringstream lines(each.findings);
            for (std::string line; std::getline(lines, line); whole.status = 1)
                whole.out += path + "/" + line + "\n";
        }
        if (whole.status == 0)
            whole.out = "No problems in " + std::to_string(cases.size()) + " dictionaries.\n";
        expectRun(whole);
    }
};

DictionaryBuilder with(const std::vector<std::string>& headwords) {
    return DictionaryBuilder("D").entries(headwords);
}

/// Two entries and a closing one, on the pages "p1.bmp" to "p3.bmp".
DictionaryBuilder sound() {
    return with({"alpha", "beta", "zzzz"});
}

/// `sound` with another `txt`.
DictionaryBuilder withTxt(const std::string& txt) {
    return sound().member("txt", txt);
}

DictionaryBuilder withImageIndex(const std::string& bytes) {
    return sound().member("mImg/ImageIndex", bytes);
}

std::string noClosingEntry(int line, const std::string& last) {
    return "ind\t" + std::to_string(line) + "\tno closing entry: the last one, \"" + last +
           "\", is never shown; one that sorts after all others should follow it\n";
}

std::string notInImageIndex(int line, const std::string& page, const std::string& list = "ImageIndex") {
    return "txt\t" + std::to_string(line) + "\tnames \"" + page + "\", which is not in " + list +
           ": stepping continues from the first page\n";
}

TEST_F(Check, SoundDictionariesHaveNoFinding) {
    expectFindings({{"no image index", sound().without("mImg/ImageIndex")},
                    {"equal headwords, marks without a composed form",
                     with({"a", "A", "á", "x\xCC\x84", "\xE2\x84\xAB", "\U0010FFFD__DLM__"})},
                    {"Spanish order", with({"cuz", "chico", "zz"}).spanish()},
                    {"names in other case or composition", withTxt("<@_P1.BMP_>\n<@_e\xCC\x81.bmp_>\n\n")
                                                               .picture("\xC3\xA9.bmp")
                                                               .imageIndex({"p1.bmp", "\xC3\xA9.bmp"})},
                    {"closing entry without a page", with({"a"}).entry("zz", "")},
                    {"empty lines after the image index", withImageIndex("2\np1.bmp\np2.bmp\np3.bmp\n\n\n")},
                    {"long Format", sound().member("Format", "000\ntrue\n" + std::string(70'000, 'x'))},
                    {"second line of Format that just fits",
                     sound().member("Format", "000\n" + std::string((1 << 16) - 5, ' ') + "\nx")},
                    {"captions, and an unused image index",
                     sound().captions({{"p1.bmp", "1"}, {"p2.bmp", "2"}, {"p3.bmp", "2"}}).imageIndex({"none.bmp"})}});
}

TEST_F(Check, FaultsOfIndexAndText) {
    expectFindings(
        {{"order", with({"re-form", "Reclaim", "", "re-act", "Ébahi", "zz"}),
          "ind\t3\tout of order: \"\" sorts before \"RECLAIM\" of line 2\n"
          "ind\t5\tout of order: \"EBAHI\" sorts before \"RE-ACT\" of line 4\n"},
         {"order of another mode", with({"chico", "cuz", "zz"}).spanish(),
          "ind\t2\tout of order: \"CUZ\" sorts before \"CƩICO\" of line 1\n"},
         {"no closing entry", with({"a", "zygote"}), noClosingEntry(2, "ZYGOTE")},
         {"last line without a page", with({"a"}).entry("b", ""), noClosingEntry(2, "B") + "txt\t2\tnames no page\n"},
         {"no entries", sound().member("ind", "").member("txt", ""), "ind\t\thas no entries\n"},
         {"decomposed", with({"cafe\xCC\x81__DLM__e\xCC\x81", "d__DLM__e\xCC\x81", "zz"}),
          "ind\t1\tis in decomposed Unicode (NFD): input in composed form (NFC), as most keyboards give it, does not "
          "find it\n"},
         {"not UTF-8", sound().member("ind", "alph\xE9\nbeta\nzzzz\n"), "ind\t1\tis not UTF-8 from byte 5 on\n"},
         {"too short", withTxt("<@_p1.bmp_>\n<@_p2.bmp_>\n"),
          "ind\t3\tno line of txt belongs to this entry: different lengths (ind has 3, txt 2)\n"},
         {"too long", withTxt("<@_p1.bmp_>\n<@_p2.bmp_>\n<@_p3.bmp_>\n\n<@_p3.bmp_>\n"),
          "txt\t4\tnames no page\n"
          "txt\t4\tno entry belongs to this line: different lengths (ind has 3, txt 5)\n"},
         {"no page", withTxt("<^_e.bmp_>\n<@_p2.bmp_>\n<@_p3.bmp_>\n").extraPicture("e.bmp"),
          "txt\t1\tnames no page\n"},
         {"missing pages, each once", withTxt("<@_gone.bmp_>\n<@_gone.bmp_>\n<@_gone.bmp_>\n").imageIndex({"p1.bmp"}),
          "txt\t1\tnames \"gone.bmp\", which is not in mImg; 2 more lines name it\n"},
         {"names that no file can have", withTxt("<@_p1.bmp_>\n<@_../ind_>\n<@_.._>\n"),
          "txt\t2\tnames \"../ind\", which is not in mImg\ntxt\t3\tnames \"..\", which is not in mImg\n"},
         {"missing errata",
          withTxt("<@_p1.bmp_><^_e1.bmp_><^_e2.bmp_>\n<@_p2.bmp_><^_e2.bmp_>\n\n").extraPicture("e1.bmp"),
          "txt\t1\tnames \"e2.bmp\", which is not in mPimg; one more line names it\n"},
         {"folder instead of a page", withTxt("<@_p1.bmp_>\n<@_p4.bmp_>\n\n").member("mImg/p4.bmp/x", ""),
          "txt\t2\tnames \"p4.bmp\", which is not in mImg\n"},
         {"page that is not in the image index", sound().imageIndex({"p1.bmp", "p3.bmp"}),
          notInImageIndex(2, "p2.bmp")},
         {"page that no image index will have",
          DictionaryBuilder("D").entry("a", "p1.bmp").entry("zz", "p2.scan").without("mImg/ImageIndex"),
          notInImageIndex(2, "p2.scan", "the page list that is made from the pictures")},
         {"long line", withTxt("<@_p1.bmp_>" + std::string(1 << 24, 'x') + "<^_e.bmp_>\n<@_p2.bmp_>\n<@_p3.bmp_>\n"),
          "txt\t1\tis 16 MiB long or longer; only the first 16 MiB are read\n"}});
}

TEST_F(Check, FaultsOfImageIndexAndOtherMembers) {
    std::string tooMany = "200000\n";
    for (int i = 0; i < 199'999; ++i)
        tooMany += "p1.bmp\n";
    expectFindings(
        {{"count of pages", withImageIndex("3\np1.bmp\np2.bmp\np3.bmp\n"),
          "mImg/ImageIndex\t1\tthe count is \"3\"; it should be 2, the number of pages less one\n"},
         {"too many pages", withImageIndex(tooMany + "p2.bmp\np3.bmp\n"),
          "mImg/ImageIndex\t\thas 200001 pages; only the first 200000 are used\n"},
         {"no count", withImageIndex("p1.bmp\np2.bmp\np3.bmp\n"),
          notInImageIndex(1, "p1.bmp") +
              "mImg/ImageIndex\t1\t\"p1.bmp\" is not a number; it should be 1, the number of pages less one\n"},
         {"empty and missing names", withImageIndex("4\np1.bmp\n\np2.bmp\np3.bmp\np4.bmp\n"),
          "mImg/ImageIndex\t3\tnames no page\nmImg/ImageIndex\t6\tnames \"p4.bmp\", which is not in mImg\n"},
         {"no pages", withImageIndex("2\n"),
          notInImageIndex(1, "p1.bmp") + notInImageIndex(2, "p2.bmp") + notInImageIndex(3, "p3.bmp") +
              "mImg/ImageIndex\t1\tlists no pages\n"},
         {"blank before a caption", sound().member("mImg/ImageIndex2", "2\np1.bmp\t1\np2.bmp 2\np3.bmp\t3\n"),
          notInImageIndex(2, "p2.bmp", "ImageIndex2") +
              "mImg/ImageIndex2\t3\thas no caption: a TAB separates name and caption\n"
              "mImg/ImageIndex2\t3\tnames \"p2.bmp 2\", which is not in mImg\n"},
         {"no mark", sound().without("FW"), "FW\t\tis missing: groups do not show the dictionary\n"},
         {"only a mark", DictionaryBuilder("D").without("ind").without("txt").without("mImg"),
          "ind\t\tis missing\ntxt\t\tis missing\nmImg\t\tis missing\n"},
         {"file instead of a folder", sound().without("mImg").member("MIMG", ""), "MIMG\t\tis not a folder\n"},
         {"folder instead of a file", sound().without("ind").member("ind/x", ""),
          "ind\t\tis not a file that can be read\n"},
         {"no picture", with({}).member("ind", "a\nzz\n").member("txt", "<@_p_>\n\n").without("mImg/ImageIndex"),
          "mImg\t\thas neither a picture nor an image index\ntxt\t1\tnames \"p\", which is not in mImg\n"},
         {"Format with a long second line", sound().member("Format", "000\n" + std::string(1 << 16, ' ') + "\n"),
          "Format\t2\tgoes beyond 64 KiB; only the first 64 KiB are read\n"}});
    std::string hundred =
        "Many/D/ind\t200000\tno closing entry: the last one, \"\", is never shown; one that sorts after all "
        "others should follow it\n";
    for (int line = 1; line <= 100; ++line)
        hundred +=
            "Many/D/txt\t" + std::to_string(line) + "\tnames no page" + (line < 100 ? "\n" : "; and 199,900 more\n");
    const std::string empty(200'000, '\n');
    sound().member("ind", empty).member("txt", empty).writeTo(folder_.at("Many"));
    expectRun({{"check", "Many/D"}, hundred, "", 1});
    const fs::path own = sound().without("txt").writeTo(folder_.path());
    folder_.fifo("D/txt");
    fs::resize_file(own / "ind", std::uintmax_t{1} << 40);
    expectRun({{"check", "D"},
               "D/ind\t\tis longer than 256 MiB, and is not read\nD/txt\t\tis not a file that can be read\n",
               "",
               1});
}

/// Each picture once, in the order of the lines and not in that in which the threads end.
TEST_F(Check, PicturesThatCannotBeDecoded) {
    const std::string fault = " cannot be decoded: the file ends before the picture begins\n";
    DictionaryBuilder dictionary("D");
    std::string expected;
    for (int i = 1000; i < 1100; ++i) {
        const std::string page = "p" + std::to_string(i) + ".bmp";
        const bool bad = i % 3 == 0;
        dictionary.entry("w" + std::to_string(i), page).picture(page, bad ? "BM" : oneBitBmp(300, 300));
        if (bad)
            expected += "D/txt\t" + std::to_string(i - 999) + "\t\"" + page + "\"" + fault;
    }
    dictionary.entry("x", "P1002.BMP", {"e.bmp"}).without("mImg/P1002.BMP").entry("zz", "p1000.bmp", {"e.bmp"});
    dictionary.picture("unused.bmp", "BM").extraPicture("e.bmp", "BM").picture("listed.bmp", "");
    dictionary.imageIndex(std::vector<std::string>(1, "listed.bmp")).writeTo(folder_.path());
    std::string found;
    std::istringstream lines(run("check D").out);
    for (std::string line; std::getline(lines, line);)
        found += line.find("decoded") == std::string::npos ? "" : line + "\n";
    EXPECT_EQ(found, expected + "D/txt\t101\t\"e.bmp\"" + fault +
                         "D/mImg/ImageIndex\t2\t\"listed.bmp\" cannot be decoded: the file is empty\n");
    EXPECT_EQ(run("check --no-images D").out.find("decoded"), std::string::npos);
}

TEST_F(Check, GroupsAndOtherArguments) {
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("B").entries({"b", "a", "zz"}))
        .dictionary(DictionaryBuilder("A").entries({"z", "y", "zz"}))
        .dictionary(DictionaryBuilder("C").entries({"a", "zz"}).without("FW"))
        .alias("Link to B", "B")
        .preferences("G\t0\t\n")
        .writeTo(folder_.path());
    for (const char* name : {"ind", "mImg", "FW"}) // groups of dictionaries with these names
        DictionaryBuilder(name).entries({"a", "zz"}).writeTo(folder_.at("Odd"));
    sound().writeTo(folder_.at("Empty"));
    for (const char* name : {"G/UserDictionaries/ind", "Odd/UserDictionaries/ind", "Empty/ind"})
        fs::create_directories(folder_.at(name));
    const std::string faultOfB = "G/B/ind\t2\tout of order: \"A\" sorts before \"B\" of line 1\n";
    const std::string other = ": neither a dictionary nor a group that holds one";
    expectRuns({{"check G",
                 "G/A/ind\t2\tout of order: \"Y\" sorts before \"Z\" of line 1\n" + faultOfB +
                     "G/C/FW\t\tis missing: groups do not show the dictionary\n",
                 "", 1},
                {"check Odd Empty", "No problems in 4 dictionaries.\n"},
                {"check Empty/D G/DictionaryPreferences.txt G/UserDictionaries", "No problems in 1 dictionary.\n",
                 "G/DictionaryPreferences.txt" + other + ", passed over\nG/UserDictionaries" + other + ", passed over"},
                {"check G/UserDictionaries", "", "G/UserDictionaries" + other, 2},
                {"check none G/B", faultOfB, "none: No such file or directory", 2}});
}

TEST(ClosingWord, RepeatsOneCharacterOrIsPrivateUse) {
    for (const char* word :
         {"ZZ", "ZZZZ", "999-99", "-Z'Z", "ÉÉ", "\uE000", "\uF8FFa", "\uFFF0", "\U000F0000", "\U0010FFFD"})
        EXPECT_TRUE(isClosingWord(word)) << word;
    for (const char* word :
         {"", "Z", "--", "ZZY", "999-98", "ÉÈ", "\uD7FF", "\uF900", "\uFFEF", "\U000EFFFF", "A\uE000", "\xFF"})
        EXPECT_FALSE(isClosingWord(word)) << word;
}

} // namespace
} // namespace velmarin::test
