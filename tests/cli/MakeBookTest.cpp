// A scan through "make draft" and "make build", with Tesseract.

#include "../scan/ScanFiles.h"
#include "CliTest.h"
#include "support/PrintedPage.h"

#include <array>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmarin::test {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::array<const char*, 3>, 4> kPages{
    {{"aback", "21", "abbey"}, {"abbey", "22", "acorn"}, {"acrid", "23", "bacon"}, {"badge", "24", "barley"}}};

/// An hOCR file beside a page, whose words are used instead of reading it.
std::string textLayer(const std::string& first, const std::string& number, const std::string& last) {
    std::ostringstream html;
    html << "<html><body><div class='ocr_page' title='bbox 0 0 1200 1000'>"
            "<span class='ocr_line' title='bbox 100 80 1060 130'>";
    int x = 100;
    for (const std::string& word : {first, number, last}) {
        html << "<span class='ocrx_word' title='bbox " << x << " 90 " << x + 120 << " 120; x_wconf 96'>" << word
             << "</span>";
        x += 420;
    }
    html << "</span></div></body></html>";
    return html.str();
}

struct MakeBookTest : CliTest {
    MakeBookTest() { fs::create_directory(folder_.path() / "G"); }

    void scan(const std::string& name, std::size_t page) {
        folder_.write("scan/" + name, printedPage(kPages[page][0], kPages[page][1], kPages[page][2]));
    }
    /// A page with a text layer, so that it is read in no time.
    void layered(const std::string& name, const std::string& first, const std::string& number,
                 const std::string& last) {
        folder_.write("scan/" + name + ".png", printedPage(first, number, last, 0.5F));
        folder_.write("scan/" + name + ".hocr", textLayer(first, number, last));
    }
    void layeredScan() {
        for (std::size_t i = 0; i < kPages.size(); ++i)
            layered("p" + std::to_string(i + 1), kPages[i][0], kPages[i][1], kPages[i][2]);
    }
    std::string lastLine(const std::string& text) const { return text.substr(text.rfind('\n', text.size() - 2) + 1); }
    /// The rows of the draft without their confidence.
    std::string draft() const {
        std::istringstream lines(folder_.read("B/draft.tsv"));
        std::string rows, line;
        for (std::getline(lines, line); std::getline(lines, line);) {
            const std::size_t state = line.rfind('\t'), confidence = line.rfind('\t', state - 1);
            rows += line.substr(0, confidence) + line.substr(state) + "\n";
        }
        return rows;
    }
};

TEST_F(MakeBookTest, ReadsAScanAndMakesADictionaryOfIt) {
    for (std::size_t i = 0; i < kPages.size(); ++i)
        scan("s" + std::to_string(i + 9) + ".png", i); // s9 before s10
    expectRun({"make draft scan B", "draft\tB\t4\t4\t0\t0\t0\n"});
    EXPECT_EQ(draft(), "s9.png\t21\taback\tabbey\tcertain\ns10.png\t22\tabbey\tacorn\tcertain\n"
                       "s11.png\t23\tacrid\tbacon\tcertain\ns12.png\t24\tbadge\tbarley\tcertain\n");
    expectRun({{"make", "build", "--title", "A and B", "--year", "1893", "B", "New/D"}, "made\tNew/D\t9\n"});
    expectRun({"check New", "No problems in 1 dictionary.\n"});
    EXPECT_EQ(folder_.read("New/D/About"), "Title: A and B\nYear: 1893\n");
    EXPECT_EQ(run("search New abbey abbot bad").out,
              "abbey\tD\thit\ts9.png\nabbot\tD\thit\ts10.png\nbad\tD\thit\ts11.png\n");
}

TEST_F(MakeBookTest, ReadsOnlyWhatHasChanged) {
    layeredScan();
    expectRun({"make draft scan B", "draft\tB\t4\t4\t0\t0\t0\n"});
    const std::string draftBefore = folder_.read("B/draft.tsv"), readings = folder_.read("B/readings.jsonl");
    expectRun({"make draft scan B", "draft\tB\t4\t4\t0\t0\t0\n"});
    EXPECT_EQ(folder_.read("B/readings.jsonl"), readings);

    // A person sets a row, a page is gone, another one is new, and the disk was full in the middle of a line.
    folder_.write("B/draft.tsv", "page,first,state\np1.png,abaca,set\np2.png,,doubtful\np3.png,,\np4.png,,\n");
    folder_.write("B/readings.jsonl", readings + R"({"reading":{"page":"p3.p)");
    fs::remove(folder_.at("scan/p2.png"));
    layered("p5", "basil", "25", "baton");
    expectRun({"make draft --number 1=7 --number 4=xx --ignore - scan B",
               "added\tp5.png\nremoved\tp2.png\ndraft\tB\t4\t3\t0\t0\t1\n"});
    EXPECT_EQ(draft(), "p1.png\t7\tabaca\t\tset\np3.png\t8\tacrid\tbacon\tcertain\n"
                       "p4.png\t9\tbadge\tbarley\tcertain\np5.png\txx\tbasil\tbaton\tcertain\n");
    const std::string added = folder_.read("B/readings.jsonl").substr(readings.size());
    EXPECT_EQ(std::count(added.begin(), added.end(), '\n'), 2) << added; // the end of the torn line, and p5.png
}

TEST_F(MakeBookTest, KeepsWhatIsSetWhenPagesAreTurned) {
    layeredScan();
    run("make draft scan B");
    folder_.write("B/draft.tsv", "page\tfirst\tstate\np2.png\tabbot\tset\n");
    run("make draft --turn 2-3:180 scan B");
    EXPECT_EQ(folder_.read("B/pages/p1.png"), folder_.read("scan/p1.png"));
    EXPECT_TRUE(fs::exists(folder_.at("B/pages/p2.tif")));
    EXPECT_NE(draft().find("p2.tif\t22\tabbot\t\tset\n"), std::string::npos) << draft();
    run({"make", "draft", "--turn", "", "--leave-out", "3-", "scan", "B"});
    EXPECT_TRUE(fs::is_empty(folder_.at("B/pages")));
    EXPECT_EQ(draft(), "p1.png\t21\taback\tabbey\tcertain\np2.png\t22\tabbot\t\tset\n");
}

TEST_F(MakeBookTest, CountsAnEditedRowAsSet) {
    layeredScan();
    run("make draft scan B");
    std::string edited = folder_.read("B/draft.tsv");
    folder_.write("B/draft.tsv", edited.replace(edited.find("acorn"), 5, "acre"));
    run("make draft --ignore - scan B"); // mends again
    EXPECT_NE(draft().find("p2.png\t22\tabbey\tacre\tset\np3.png\t23\tacrid\tbacon\tcertain\n"), std::string::npos)
        << draft();
}

TEST_F(MakeBookTest, CutsASpreadUntilItIsToldNotTo) {
    layered("p1", "aback", "21", "acorn");
    run("make draft --spread scan B");
    EXPECT_TRUE(fs::exists(folder_.at("B/pages/p1a.tif")) && fs::exists(folder_.at("B/pages/p1b.tif")));
    run("make draft --no-spread scan B");
    EXPECT_EQ(draft(), "p1.png\t21\taback\tacorn\tcertain\n");
}

TEST_F(MakeBookTest, BuildsFromABookThatCannotBeWritten) {
    layeredScan();
    run("make draft scan B");
    fs::permissions(folder_.path(), fs::perms{0711});
    fs::permissions(folder_.at("G"), fs::perms{0777});
    if (::geteuid() == 0)
        words_ = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", VELMARIN_CLI};
    if (run("--version").status != 0)
        GTEST_SKIP() << "the program is where only root can start it";
    fs::permissions(folder_.at("B"), fs::perms{0555});
    EXPECT_EQ(run("make draft --ignore - scan B").status, 2);
    expectRun({"make build B G/D", "made\tG/D\t9\n"});
    fs::permissions(folder_.at("B"), fs::perms{0755});
}

TEST_F(MakeBookTest, GoesOnWithAPdfWhereItWasStopped) {
    std::vector<PdfPageText> pages;
    for (char letter = 'a'; letter <= 'p'; ++letter)
        pages.push_back({drawWords({{30, std::string(1, letter) + "a"}, {230, std::string(1, letter) + "z"}})});
    folder_.write("s.pdf", pdfOf(pages));
    const std::string stopSoon = "until [ -s B/readings.jsonl ]; do sleep 0.02; done; kill -INT $!; wait $!; exit $?";
    const ProgramRun stopped =
        runProgram({"sh", "-c", "'" + words_[0] + "' make draft s.pdf B & " + stopSoon}, {.folder = folder_.path()});
    EXPECT_EQ(stopped.status, 1) << stopped.err;
    EXPECT_EQ(lastLine(run("make draft s.pdf B").out).rfind("draft\tB\t16\t", 0), 0U);
    const std::string readings = folder_.read("B/readings.jsonl");
    EXPECT_EQ(std::count(readings.begin(), readings.end(), '\n'), 16); // none was read twice
}

TEST_F(MakeBookTest, GoesOnWhereItWasStopped) {
    for (int i = 0; i < 10; ++i)
        scan("s" + std::to_string(i) + ".png", 0);
    // The scan tells when to stop: the log has a reading, and many pages are left.
    const std::string stopLater = "until [ -s B/readings.jsonl ]; do sleep 0.02; done; kill -INT $!; wait $!; exit $?";
    const ProgramRun stopped =
        runProgram({"sh", "-c", "'" + words_[0] + "' make draft scan B & " + stopLater}, {.folder = folder_.path()});
    EXPECT_EQ(stopped.status, 1) << stopped.err;
    EXPECT_EQ(stopped.out.rfind("stopped\tB\t", 0), 0U) << stopped.out;
    const std::string before = folder_.read("B/readings.jsonl");
    const auto read = std::count(before.begin(), before.end(), '\n');
    EXPECT_LT(read, 10);
    const ProgramRun rest = run("make draft scan B");
    EXPECT_EQ(lastLine(rest.out).rfind("draft\tB\t10\t", 0), 0U) << rest.out;
    const std::string after = folder_.read("B/readings.jsonl");
    EXPECT_EQ(std::count(after.begin(), after.end(), '\n'), 10); // none was read twice
    EXPECT_EQ(after.substr(0, before.size()), before);
}

TEST_F(MakeBookTest, GoesOnAfterAFullDisk) {
    layeredScan();
    const std::string limited = "trap '' XFSZ; ulimit -f 1; exec '" + words_[0] + "' make draft scan B";
    const ProgramRun full = runProgram({"bash", "-c", limited}, {.folder = folder_.path()});
    EXPECT_EQ(full.status, 2);
    EXPECT_NE(full.err.find("B/readings.jsonl: it could not be written: File too large"), std::string::npos)
        << full.err;
    expectRun({"make draft scan B", "draft\tB\t4\t4\t0\t0\t0\n"});
}

TEST_F(MakeBookTest, ReportsPagesThatCannotBeRead) {
    layeredScan();
    folder_.write("scan/p3.png", "no picture");
    const ProgramRun found = run("make draft scan B");
    EXPECT_EQ(found.out.rfind("unreadable\tp3.png\tit cannot be decoded: ", 0), 0U) << found.out;
    EXPECT_EQ(lastLine(found.out), "draft\tB\t4\t3\t0\t1\t0\n");
    layered("p3", "acrid", "23", "bacon");
    expectRun({"make draft scan B", "draft\tB\t4\t4\t0\t0\t0\n"});
}

TEST_F(MakeBookTest, RefusesWhatIsNoScanOrNoBook) {
    layeredScan();
    folder_.write("other/p1.png", printedPage("a", "1", "b", 0.5F));
    folder_.write("mine/notes", "mine");
    folder_.write("odd/book.json", "{}");
    fs::create_directory(folder_.at("empty"));
    run("make draft scan B");
    run("make draft other B2");
    fs::rename(folder_.at("other"), folder_.at("moved"));
    expectRefusals({
        {"make draft nothing N", "nothing: there is no such file or folder"},
        {"make draft empty N", "empty: it holds no pictures"},
        {"make draft scan scan/B", "scan/B: the book and its scan must not be in one another"},
        {"make draft scan/p1.png scan", "scan: the book and its scan must not be in one another"},
        {"make draft scan mine", "mine: it is not the folder of a book, and not empty"},
        {"make draft scan odd", "odd/book.json: it does not hold the settings of a book"},
        {"make draft moved B", "B: it is the book of another scan, " + fs::canonical(folder_.at("scan")).string()},
        {"make draft --turn 45 scan N", "--turn: it is 90, 180 or 270, or PAGES:DEGREES"},
        {"make draft --leave-out 8-3 scan N", "--leave-out: each part is PAGE, PAGE-PAGE or PAGE-"},
        {"make draft --number x scan N", "--number: it is PAGE=NUMBER, such as 9=1"},
        {"make build mine G/D", "mine: it is not the folder of a book"},
        {"make build nothing G/D", "nothing: there is no such folder"},
        {"make build B2 G/D", (fs::canonical(folder_.path()) / "other").string() + ": the scan of the book is missing"},
        {"make build B none/G/D", "none: No such file or directory"},
    });
    run("make draft moved B2");
    EXPECT_EQ(fs::read_symlink(folder_.at("B2/source")), fs::canonical(folder_.at("moved")));
}

TEST_F(MakeBookTest, WaitsForNoOtherRun) {
    layeredScan();
    run("make draft scan B");
    const int book = ::open(folder_.at("B").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(book, LOCK_EX), 0);
    expectRefusals({{"make draft scan B", "B: another run is working on this book"}});
    expectRun({"make build B G/D", "made\tG/D\t9\n"}); // it writes nothing there
    ::close(book);
}

TEST_F(MakeBookTest, SaysWhichLanguageIsMissing) {
    scan("s.png", 0);
    const ProgramRun found = run("make draft --lang tlh scan B");
    EXPECT_EQ(found.status, 2);
    EXPECT_NE(found.err.find("tesseract-ocr-tlh"), std::string::npos) << found.err;
}

TEST_F(MakeBookTest, BuildsWhateverTheDraftSays) {
    layeredScan();
    run("make draft scan B");
    const struct {
        const char *rows, *out;
        int status;
    } cases[] = {
        {"p1.png\taal\tÄther\tset\np2.png\tÄther\tEsel\tset\np3.png\tEsel\tEsel\tset\np4.png\tFuß\t\tset\n",
         "made\tG/D\t8\n", 0},
        {"p1.png\tde-\tde ante\tset\np2.png\t-deus\t'dextans\tset\np3.png\tch\tcz\tset\np4.png\tll\tlz\tset\n",
         "misplaced\tp3.png\tch\t'dextans\tll\nmisplaced\tp3.png\tcz\t'dextans\tll\nmade\tG/D\t15\n", 0},
        {"p2.png\ta__DLM__b\t<@_x_>\tset\np4.png\t\"b\tc\"\t—\tdoubtful\np9.png\td\t\tset\n",
         "doubtful\tp1.png\tno guide word was read\ndoubtful\tp3.png\tno guide word was read\n"
         "removed\tp9.png\nmisplaced\tp2.png\ta__DLM__b\t\t<@_x_>\nmade\tG/D\t9\n",
         1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rows);
        folder_.write("B/draft.tsv", std::string("page\tfirst\tlast\tstate\n") + c.rows);
        const ProgramRun made = run({"make", "build", "--ignore", "-' ", "--alike", "ä=ae", "B", "G/D"});
        EXPECT_EQ(made.status, c.status) << made.err;
        EXPECT_EQ(made.out, c.out);
        expectRun({"check G/D", "No problems in 1 dictionary.\n"});
        fs::remove_all(folder_.at("G/D"));
    }
}

TEST_F(MakeBookTest, KeepsErrataOfTheDraft) {
    layeredScan();
    folder_.write("extra/e.png", printedPage("", "", "", 0.1F));
    run("make draft scan B");
    folder_.write("B/draft.tsv", "page,first,state,errata\np2.png,acid,set,e.png\n");
    run("make draft scan B");
    const Arguments build{"make", "build", "--extra-pages", "extra", "B", "G/D"};
    EXPECT_EQ(lastLine(run(build).out), "made\tG/D\t8\n");
    EXPECT_EQ(run("search G acid").out, "acid\tD\thit\tp2.png\te.png\n");
    expectRun({"check G/D", "No problems in 1 dictionary.\n"});
}

} // namespace
} // namespace velmarin::test
