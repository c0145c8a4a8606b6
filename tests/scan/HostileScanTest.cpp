#include "ScanFiles.h"
#include "scan/OpenScan.h"
#include "support/TempFolder.h"
#include "support/Tree.h"
#include "view/Encoders.h"

#include <csignal>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <tiff.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::drawImage;
using test::drawWords;
using test::pdfOf;
using test::printedPage;
using test::TempFolder;

std::string problemOf(const fs::path& file, const ScanTools& tools = {}) {
    const OpenedScan opened = openScan(FolderItem(file), tools);
    return opened.scan ? "" : opened.result.failure().reason;
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    return text.replace(text.find(what), what.size(), by);
}

/// A DjVu file of one page that includes the file `name`.
std::string djvuWith(const std::string& name) {
    const std::string info = std::string("INFO\0\0\0\x0a\x01\x00\x01\x00\x18\x00\x2c\x01\x16\x01", 18);
    std::string incl = std::string("INCL\0\0\0", 7) + static_cast<char>(name.size()) + name;
    incl.append(incl.size() % 2, '\0');
    const std::size_t size = 4 + info.size() + incl.size();
    return std::string("AT&TFORM\0\0\0", 11) + static_cast<char>(size) + "DJVU" + info + incl;
}

TEST(HostileScan, IsRefusedWithAReason) {
    const Picture ink = printedPage(200, 300, 1, 1);
    const TempFolder folder;
    const std::string pdf = pdfOf({{drawWords({{20, "A"}})}});
    const std::string unknown(32, 'x');
    fs::create_directories(folder.at("empty"));
    folder.fifo("fifo");
    const struct {
        fs::path file;
        std::string reason;
        ScanTools tools = {};
    } cases[] = {
        {folder.at("gone"), "it could not be read"},
        {folder.at("fifo"), "it could not be read"},
        {folder.at("empty"), "it holds no pictures"},
        {folder.write("text", "abc"), "it is not a folder of pictures, a PDF, a DjVu or a TIFF file"},
        {folder.write("short.pdf", pdf.substr(0, 100)), "it could not be read: pdfinfo failed: Syntax Error"},
        {folder.write("many.pdf", replaced(pdf, "/Count 1", "/Count 1000000")),
         "it could not be read: pdfinfo failed: "},
        {folder.write("none.pdf", replaced(pdf, "/Count 1", "/Count 0")), "it could not be read: pdfinfo failed: "},
        {folder.write("locked.pdf", pdfOf({{}}, {},
                                          "/ID [(a) (a)] /Encrypt << /Filter /Standard /V 1 /R 2 /P -4 /O (" + unknown +
                                              ") /U (" + unknown + ") >>")),
         "it could not be read: it is protected by a password"},
        {folder.write("a.pdf", pdf),
         "the program pdfinfo is missing; it is in the Debian package poppler-utils",
         {folder.path()}},
        {folder.write("a.djvu", djvuWith("x")),
         "the program djvused is missing; it is in the Debian package djvulibre-bin",
         {folder.path()}},
        {folder.write("short.djvu", djvuWith("x").substr(0, 20)), "it could not be read: djvused failed"},
        {folder.write("short.tif", test::tiffOf({ink}, COMPRESSION_CCITTFAX4).substr(0, 9)),
         "it could not be read: it holds no pictures"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.file);
        EXPECT_EQ(problemOf(each.file, each.tools).substr(0, each.reason.size()), each.reason);
    }
    const std::string tiff = test::tiffOf({ink, ink, ink}, COMPRESSION_LZW);
    // The last directory says where the next one is: at its own beginning.
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(tiff[i]); };
    const auto number = [&](std::size_t i) { return byteAt(i) | byteAt(i + 1) << 8U | byteAt(i + 2) << 16U; };
    std::size_t last = number(4), link = 4;
    for (std::size_t next = last; next != 0; next = number(link)) {
        last = next;
        link = last + 2 + std::size_t{12} * (byteAt(last) | byteAt(last + 1) << 8U);
    }
    std::string loop = tiff;
    loop.replace(link, 4, tiff.substr(4, 4));
    const OpenedScan opened = openScan(FolderItem(folder.write("loop.tif", loop)));
    ASSERT_TRUE(opened.scan);
    EXPECT_EQ(opened.scan->pageCount(), 4U) << "the damage counts as a page";
}

TEST(HostileScan, LosesOnlyItsBadPages) {
    const Picture ink = printedPage(600, 800, 1, 2);
    const TempFolder folder;
    std::vector<std::string> forms; // each draws the next one ten times
    for (int i = 4; i < 16; ++i) {
        const std::string content = "/X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do /X Do 0 0 9 9 re f";
        forms.push_back("<< /Type /XObject /Subtype /Form /BBox [0 0 288 384] /Resources << /XObject << /X " +
                        std::to_string(i + 1) + " 0 R >> >> /Length " + std::to_string(content.size()) +
                        " >>\nstream\n" + content + "\nendstream");
    }
    const std::string fax = test::pdfImage(ink, "CCITTFaxDecode");
    const std::string broken = test::pdfImage(printedPage(600, 800, 8, 3), "DCTDecode");
    const auto pdf =
        folder.write("book.pdf", pdfOf({{drawImage(), {fax}},
                                        {"/X Do"},
                                        {drawWords({{20, "A"}}), {}, "", "0 0 14400 14400"},
                                        {drawImage(), {broken.substr(0, broken.size() / 2) + "\nendstream"}},
                                        {drawImage(), {fax}}},
                                       forms));
    test::djvuOf({ink, ink}, folder.path());
    std::string djvu = folder.read("book.djvu");
    djvu.resize(djvu.size() * 3 / 4);
    const std::string tiff = test::tiffOf({ink, ink}, COMPRESSION_CCITTFAX4);
    ScanTools tools;
    tools.limits.processor = 1s;
    const struct {
        fs::path file;
        std::vector<std::string> problems; ///< of each page; empty if it is taken out
    } cases[] = {{pdf,
                  {"", "pdftoppm takes too long over it",
                   "it is 200 by 200 inches large, which is too much for 300 dpi", "", ""}},
                 {folder.write("cut.djvu", djvu), {"", "djvused failed: *** Unexpected End Of File"}},
                 {folder.write("loop.djvu", djvuWith("loop.djvu")), {""}},
                 {folder.write("cut.tif", tiff.substr(0, tiff.size() - 20)), {"", "its data cannot be read"}}};
    for (const auto& each : cases) {
        const OpenedScan opened = openScan(FolderItem(each.file), tools);
        ASSERT_TRUE(opened.scan) << opened.result.failure().message();
        ASSERT_EQ(opened.scan->pageCount(), each.problems.size());
        for (std::size_t page = 0; page < each.problems.size(); ++page) {
            SCOPED_TRACE(each.file.filename().string() + " " + std::to_string(page));
            const PagePictures taken =
                opened.scan->takeOut(page, {}, folder.at("pages-" + each.file.filename().string()));
            const std::string problem = taken.result ? "" : taken.result.failure().reason;
            EXPECT_EQ(taken.files.empty(), !each.problems[page].empty());
            EXPECT_NE(problem.find(each.problems[page]), std::string::npos) << problem;
            opened.scan->textOf(page, {}, taken.files);
        }
    }
    EXPECT_TRUE(test::leftoversIn(folder.path()).empty());
}

TEST(TakingOut, StopsAndGoesOn) {
    const TempFolder folder;
    const Picture ink = printedPage(600, 800, 1, 4);
    const auto scan =
        openScan(FolderItem(folder.write("book.pdf", pdfOf({{drawImage(), {test::pdfImage(ink, "")}}})))).scan;
    for (int steps = 0;; steps += 1 + steps / 2) {
        ASSERT_LT(steps, 1000);
        int left = steps;
        const PagePictures taken = scan->takeOut(0, {.mayContinue = [&] { return left-- > 0; }}, folder.at("pages"));
        EXPECT_TRUE(test::leftoversIn(folder.path()).empty());
        if (taken.result)
            break;
        EXPECT_TRUE(taken.stopped);
        EXPECT_FALSE(fs::exists(folder.at("pages/p0001.tif")));
    }
    folder.write("pages/p0001.tif", "there already");
    EXPECT_EQ(scan->takeOut(0, {}, folder.at("pages")).files.size(), 1U);
    EXPECT_EQ(folder.read("pages/p0001.tif"), "there already");
}

TEST(TakingOut, ReportsAFullDisk) {
    const TempFolder folder;
    const auto scan =
        openScan(FolderItem(folder.write("a", test::tiffOf({printedPage(600, 800, 1, 5)}, COMPRESSION_LZW)))).scan;
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
    rlimit small = before;
    small.rlim_cur = 500;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const PagePictures taken = scan->takeOut(0, {}, folder.at("pages"));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    ASSERT_FALSE(taken.result);
    EXPECT_EQ(taken.result.failure().reason, "it could not be written: File too large");
    EXPECT_TRUE(fs::is_empty(folder.at("pages")));
    EXPECT_TRUE(scan->takeOut(0, {}, folder.at("pages")).result);
}

} // namespace
} // namespace velmarin
