#include "ScanFiles.h"
#include "scan/OpenScan.h"
#include "support/PictureDifference.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"
#include "support/Tree.h"
#include "view/Decoders.h"
#include "view/Encoders.h"
#include "view/PixTools.h"

#include <gtest/gtest.h>

#include <tiff.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::drawImage;
using test::drawWords;
using test::pdfImage;
using test::pdfOf;
using test::printedPage;
using test::TempFolder;

constexpr int kWide = 600, kHigh = 800; // as large as a page of pdfOf at this resolution:
constexpr int kDpi = 150;

std::unique_ptr<ScanSource> opened(const fs::path& file, const ScanTools& tools = {}) {
    OpenedScan result = openScan(FolderItem(file), tools);
    EXPECT_TRUE(result.result) << (result.result ? "" : result.result.failure().message());
    return std::move(result.scan);
}

Picture decoded(const fs::path& file) {
    return decodePicture(FolderItem(file)).picture;
}

Picture turned(const Picture& picture, int quarters) {
    return Picture::adopt(pixRotateOrth(picture.pix(), quarters));
}

Picture inverse(const Picture& picture) {
    return Picture::adopt(pixInvert(nullptr, picture.pix()));
}

/// How a page of a PDF comes out.
struct PdfCase {
    const char* what;
    test::PdfPageText page;
    const char* name;
    Picture picture = {}; ///< nil: only the size is compared
    int tolerance = 0;
    int width = kWide, height = kHigh;
};

TEST(ScanSource, TakesPagesOutOfPdf) {
    const Picture ink = printedPage(kWide, kHigh, 1, 1), grey = printedPage(kWide, kHigh, 8, 2),
                  large = printedPage(3 * kWide, 3 * kHigh, 1, 3);
    const std::string fax = pdfImage(ink, "CCITTFaxDecode"), photograph = pdfImage(grey, "DCTDecode");
    const std::vector<PdfCase> cases{
        {"1 bit, without coding", {drawImage(), {pdfImage(ink, "")}}, "p0001.tif", ink},
        {"CCITT", {drawImage(), {fax}}, "p0002.tif", ink},
        {"JPEG",
         {drawImage(), {photograph}},
         "p0003.jpg",
         decoded(TempFolder().write("p.jpg", *encodePicture(grey, "jpg")))},
        {"grey, without coding", {drawImage(), {pdfImage(grey, "")}}, "p0004.png", grey},
        {"turned", {drawImage(), {fax}, "/Rotate 90"}, "p0005.tif", turned(ink, 1), 0, kHigh, kWide},
        {"turned JPEG", {drawImage(), {photograph}, "/Rotate 180"}, "p0006.jpg", turned(grey, 2), 60},
        {"inverted", {drawImage(), {pdfImage(ink, "CCITTFaxDecode", "/Decode [1 0]")}}, "p0007.tif", inverse(ink)},
        {"stencil", {drawImage(), {pdfImage(ink, "CCITTFaxDecode", "/ImageMask true")}}, "p0008.tif", ink},
        {"mirrored", {drawImage(0, "-288 0 0 384 288 0"), {fax}}, "p0009.tif"},
        {"cropped", {drawImage(), {fax}, "/CropBox [0 192 288 384]"}, "p0010.tif", {}, 0, kWide, kHigh / 2},
        {"margin", {drawImage(0, "260 0 0 350 14 17"), {fax}}, "p0011.tif"},
        {"stamped", {drawImage() + drawWords({{250, "7"}}), {fax}}, "p0012.tif"},
        {"hidden text", {drawImage() + "3 Tr " + drawWords({{50, "ink"}}), {fax}}, "p0013.tif", ink},
        {"two pictures", {drawImage() + drawImage(1, "144 0 0 192 0 0"), {fax, photograph}}, "p0014.png"},
        {"text", {drawWords({{20, "Abacus"}, {200, "Abbot"}})}, "p0015.tif"},
        {"flat colors", {"1 0 0 rg 50 50 100 100 re f"}, "p0016.png"},
        // Drawn a little smaller than the page, as if the page were rounded to points.
        {"large stencil",
         {drawImage(0, "287.6 0 0 383.6 0 0"), {pdfImage(large, "CCITTFaxDecode", "/ImageMask true")}},
         "p0017.tif",
         large,
         0,
         3 * kWide,
         3 * kHigh},
        {"two inches", {drawWords({{20, "A"}}), {}, "", "0 0 144 144"}, "p0018.tif", {}, 0, 300, 300}};
    std::vector<test::PdfPageText> pages;
    for (const PdfCase& each : cases)
        pages.push_back(each.page);
    const TempFolder folder;
    const auto scan = opened(folder.write("-a b\n%d\".PDF", pdfOf(pages)));
    ASSERT_EQ(scan->pageCount(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const PdfCase& each = cases[i];
        SCOPED_TRACE(each.what);
        const PagePictures taken = scan->takeOut(i, {.dpi = kDpi}, folder.at("pages"));
        ASSERT_TRUE(taken.result) << taken.result.failure().message();
        ASSERT_EQ(taken.files, std::vector{folder.at("pages") / each.name});
        const Picture picture = decoded(taken.files[0]);
        EXPECT_EQ(picture.Width(), each.width);
        EXPECT_EQ(picture.Height(), each.height);
        if (each.picture) {
            EXPECT_LE(test::difference(picture, each.picture), each.tolerance);
        }
    }
    EXPECT_EQ(folder.read("pages/p0003.jpg"), *encodePicture(grey, "jpg")) << "byte for byte";
    EXPECT_TRUE(test::leftoversIn(folder.path()).empty());
}

TEST(ScanSource, TakesPagesOutOfTiffAndDjvu) {
    const Picture ink = printedPage(400, 500, 1, 3), other = printedPage(300, 400, 1, 4),
                  grey = printedPage(300, 200, 8, 5);
    const TempFolder folder;
    const struct {
        const char* what;
        fs::path file;
        std::vector<Picture> pages;
        const char* extension;
        int tolerance = 0;
    } cases[] = {{"G4", folder.write("g4", test::tiffOf({ink, other}, COMPRESSION_CCITTFAX4)), {ink, other}, ".tif"},
                 {"LZW", folder.write("lzw", test::tiffOf({ink, other}, COMPRESSION_LZW)), {ink, other}, ".tif"},
                 {"grey", folder.write("grey", test::tiffOf({grey, grey}, COMPRESSION_DEFLATE)), {grey, grey}, ".png"},
                 {"JPEG", folder.write("jpeg", test::tiffOf({grey}, COMPRESSION_JPEG)), {grey}, ".tif", 120},
                 {"DjVu", test::djvuOf({ink, other}, folder.path()), {ink, other}, ".tif"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const auto scan = opened(each.file);
        ASSERT_EQ(scan->pageCount(), each.pages.size());
        for (std::size_t i = each.pages.size(); i-- > 0;) {
            const PagePictures taken = scan->takeOut(i, {}, folder.at(each.what + std::string("-pages")));
            ASSERT_EQ(taken.files.size(), 1U) << taken.result.failure().message();
            EXPECT_EQ(taken.files[0].extension(), each.extension);
            EXPECT_LE(test::difference(decoded(taken.files[0]), each.pages[i]), each.tolerance);
        }
    }
}

TEST(ScanSource, TurnsAndCuts) {
    // Two pages side by side, leaning, with a white gutter or the line of a fold between them.
    const int gutter = 640;
    const Picture left = printedPage(gutter, 900, 1, 6), right = printedPage(560, 900, 1, 7);
    for (const bool fold : {false, true}) {
        Pix* both = pixCreate(1200, 900, 1);
        pixRasterop(both, 0, 0, gutter, 900, PIX_SRC, left.pix(), 0, 0);
        pixRasterop(both, gutter, 0, 560, 900, PIX_SRC, right.pix(), 0, 0);
        for (int y = 0; fold && y < 900; ++y)
            pixRasterop(both, gutter + (y - 450) / 40, y, 4, 1, PIX_SET, nullptr, 0, 0);
        const TempFolder folder;
        const Picture spread = Picture::adopt(both);
        folder.write("scan/p2.tif", *encodePicture(turned(spread, 3), "tif"));
        folder.write("scan/p10.JPEG", *encodePicture(left, "jpg"));
        folder.write("scan/p2.hocr",
                     "<html><body><div class='ocr_page' title='bbox 0 0 450 600'><span class='ocr_line'>"
                     "<span class='ocrx_word' title='bbox 50 500 60 580'>a</span>"
                     "<span class='ocrx_word' title='bbox 50 20 60 100'>z</span></span></div>");
        const auto scan = opened(folder.at("scan"));
        const PageOptions options{.turn = 90, .spread = fold ? Spread::RightFirst : Spread::LeftFirst};
        const PagePictures taken = scan->takeOut(0, options, folder.at("pages"));
        ASSERT_EQ(taken.files.size(), 2U);
        EXPECT_EQ(taken.files[0].filename(), "p0001a.tif");
        const Picture first = decoded(taken.files[fold ? 1 : 0]), second = decoded(taken.files[fold ? 0 : 1]);
        EXPECT_NEAR(first.Width(), gutter, fold ? 6 : 30);
        EXPECT_EQ(first.Width() + second.Width(), 1200);
        EXPECT_EQ(test::difference(Picture::adopt(pixRemoveBorderGeneral(second.pix(), 40, 0, 0, 0)),
                                   Picture::adopt(pixRemoveBorderGeneral(spread.pix(), first.Width() + 40, 0, 0, 0))),
                  0);
        const auto texts = scan->textOf(0, options, taken.files);
        ASSERT_TRUE(texts[0] && texts[1]);
        EXPECT_EQ(texts[fold ? 1 : 0]->lines.at(0).words.at(0).text, "a");
        const PageBox box = texts[fold ? 0 : 1]->lines.at(0).words.at(0).box;
        EXPECT_EQ(box.x, 1000 - first.Width());
        EXPECT_EQ(box.y, 100);
        EXPECT_EQ(box.width, 160);

        EXPECT_EQ(scan->takeOut(1, {.spread = Spread::LeftFirst}, folder.at("pages")).files,
                  std::vector{folder.at("pages/p0002a.jpg")});
        EXPECT_EQ(folder.read("pages/p0002a.jpg"), folder.read("scan/p10.JPEG")) << "one page";
        EXPECT_EQ(scan->takeOut(1, {}, folder.at("pages")).files, std::vector{folder.at("scan/p10.JPEG")});
    }
}

TEST(ScanSource, FindsThePagesOfTextFilesOfManyPages) {
    const auto hocr = [](const std::string& title, const std::string& word) {
        return "<div class='ocr_page' title='" + title + "bbox 0 0 9 9'><span class='ocrx_word' title='bbox 1 1 5 5'>" +
               word + "</span></div>";
    };
    const auto alto = [](const std::string& word) {
        return "<a:Page WIDTH='9' HEIGHT='9'><a:String CONTENT='" + word + "' WIDTH='3' HEIGHT='3'/></a:Page>";
    };
    const std::string head = "<html><head><meta content='ocr_page'/></head><body>", a = hocr("", "a"),
                      b = hocr("", "b");
    const struct {
        const char* what;
        const char* file;
        std::string text;
        std::string words; ///< of both pages
    } cases[] = {{"by name", "scan/book.hocr",
                  head + hocr("image \"D:\\s;\\P2.TIF\"; ", "b") + hocr("image x/p1.tif; ", "a"), "ab"},
                 {"in order", "scan/book.html", head + a + b, "ab"},
                 {"named as a page", "scan/p1.hocr", head + a + b, "ab"},
                 {"of another book", "scan/book.hocr", head + a + b + a, "--"},
                 {"one page", "scan/p2.hocr", head + b, "-b"},
                 {"ALTO", "scan/book.xml",
                  "<a:alto xmlns:a='x'><a:Layout>" + alto("a") + alto("b") + "</a:Layout></a:alto>", "ab"},
                 {"beside a TIFF", "scan.hocr",
                  head + hocr("image \"scan.tif\"; ", "a") + hocr("image \"scan.tif\"; ", "b"), "ab"}};
    const Picture ink = printedPage(300, 400, 1, 1);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const TempFolder folder;
        folder.write("scan/p1.tif", *encodePicture(ink, "tif"));
        folder.write("scan/p2.tif", *encodePicture(ink, "tif"));
        folder.write("scan.tif", test::tiffOf({ink, ink}, COMPRESSION_CCITTFAX4));
        folder.write(each.file, each.text);
        const auto scan = opened(folder.at(fs::path(each.file).has_parent_path() ? "scan" : "scan.tif"));
        std::string words;
        for (const std::size_t page : {0, 1}) {
            const auto texts = scan->textOf(page, {}, {folder.at("scan/p1.tif")});
            words += texts.at(0) ? texts[0]->lines.at(0).words.at(0).text : "-";
        }
        EXPECT_EQ(words, each.words);
    }
}

TEST(ScanSource, ReadsTheTextOfPdfAndDjvu) {
    const Picture ink = printedPage(kWide, kHigh, 1, 8);
    const std::string words = drawWords({{20, "Abacus"}, {200, "Abb\\351"}}), image = pdfImage(ink, "");
    const TempFolder folder;
    const auto djvu = folder.at("-a\n#%41?\"'.djvu");
    fs::rename(test::djvuOf({ink, turned(ink, 1), ink}, folder.path()), djvu);
    folder.write("text", "select 1; set-txt\n(page 0 0 600 800 (line 50 700 550 750 (word 50 700 200 750 \"Abacus\") "
                         "(word 400 700 550 750 \"Abb\\303\\251\")))\n.\n"
                         "select 2; set-txt\n(page 0 0 800 600 (line 700 400 750 550 \"x Abb\\303\\251\"))\n.\n"
                         "set-rotation 1; save\n");
    ASSERT_EQ(test::runProgram({"djvused", "-f", folder.at("text").string(), djvu.string()}).status, 0);
    const struct {
        const char* what;
        fs::path file;
        std::size_t page;
        std::string text;
        PageBox last;
    } cases[] = {
        {"PDF", folder.write("1.pdf", pdfOf({{words}})), 0, "Abacus AbbØ ", {417, 63, 102, 38}},
        {"cropped",
         folder.write("2.pdf", pdfOf({{words, {}, "/CropBox [100 200 288 384]"}})),
         0,
         "AbbØ ",
         {208, 63, 102, 38}},
        {"turned", folder.write("3.pdf", pdfOf({{words, {}, "/Rotate 90"}})), 0, "Abacus AbbØ ", {699, 417, 38, 102}},
        {"over a picture",
         folder.write("4.pdf", pdfOf({{drawImage() + "3 Tr " + words, {image}}})),
         0,
         "Abacus AbbØ ",
         {417, 63, 102, 38}},
        {"none", folder.write("5.pdf", pdfOf({{drawImage(), {image}}})), 0, "", {}},
        {"DjVu", djvu, 0, "Abacus Abbé ", {400, 50, 150, 50}},
        {"turned", djvu, 1, "x Abbé ", {50, 50, 150, 36}},
        {"none", djvu, 2, "", {}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const auto scan = opened(each.file);
        const auto pictures =
            scan->takeOut(each.page, {.dpi = kDpi}, folder.at(each.file.filename().string() + ".d")).files;
        const auto text = scan->textOf(each.page, {}, pictures).at(0);
        std::string all;
        PageBox last;
        for (const TextLine& line : text ? text->lines : std::vector<TextLine>())
            for (const TextWord& word : line.words) {
                all += word.text + " ";
                last = word.box;
            }
        EXPECT_EQ(all, each.text);
        if (each.file == djvu) {
            EXPECT_EQ(test::difference(decoded(pictures.at(0)), ink), 0);
        }
        EXPECT_NEAR(last.x, each.last.x, 3);
        EXPECT_NEAR(last.y, each.last.y, 3);
        EXPECT_NEAR(last.width, each.last.width, 3);
        EXPECT_NEAR(last.height, each.last.height, 3);
    }
}

} // namespace
} // namespace velmarin
