#include "scan/DjvuText.h"
#include "scan/XmlText.h"

#include <cmath>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// The text in short: "600x800 word@x,y,w,h/confidence* other|; next line".
std::string asText(const std::optional<PageText>& text) {
    if (!text)
        return "none";
    std::string all = std::to_string(text->width) + "x" + std::to_string(text->height);
    for (const TextLine& line : text->lines) {
        for (const TextWord& word : line.words) {
            all += " " + word.text + "@" + std::to_string(word.box.x) + "," + std::to_string(word.box.y) + "," +
                   std::to_string(word.box.width) + "," + std::to_string(word.box.height);
            if (word.confidence < 1)
                all += "/" + std::to_string(std::lround(word.confidence * 100));
            all += word.bold ? "*" : "";
            for (const std::string& other : word.others)
                all += "|" + other;
        }
        all += ";";
    }
    return all;
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(TextLayers, AreReadAsFarAsTheyGo) {
    using Reader = std::optional<PageText> (*)(std::string_view);
    const struct {
        const char* what;
        Reader read;
        std::string text, expected;
    } cases[] = {
        {"hOCR", readHocr,
         "<?xml version='1.0'?><!DOCTYPE html><html><head><title>a & b</title><meta charset='x'></head><body>\n"
         "<div class='ocr_page' title='image \"a;b.tif\"; bbox 0 0 600 800; ppageno 0'>"
         "<img src='x'><p class='ocr_par'><span class='ocr_header' title=\"bbox 10 20 300 40; baseline 0 -5\">"
         "<span class='ocrx_word' title='bbox 10 20 90 40; x_wconf 93'><strong>Ab&amp;c</strong></span><br>"
         "<span class='ocrx_word' title='x_wconf 50; bbox 100 20 190 40'> &#x161;a </span>"
         "<span class='ocrx_word' title='bbox 200 20 190 40'>  </span></span>"
         "<span class='big ocr_line'><span class='ocrx_word' title='bbox 10 60 90 "
         "80'>caf\xC3\xA9</span></span></p></div>"
         "<div class='ocr_page' title='bbox 0 0 9 9'><span class='ocrx_word' title='bbox 1 1 2 2'>z</span></div>",
         "600x800 Ab&c@10,20,80,20/93* ša@100,20,90,20/50; café@10,60,80,20;"},
        {"hOCR, cut off", readHocr,
         "<body><div class='ocr_page'><span class='ocrx_word' title='bbox 1 2 30 40'>word</span><span class='ocrx",
         "30x40 word@1,2,29,38;"},
        {"HTML", readHocr, "<html><body><p>word</p></body></html>", "none"},
        {"ALTO", readAlto,
         "<a:alto xmlns:a='x'><a:Layout><a:Page WIDTH='600' HEIGHT='800'><a:PrintSpace><a:TextLine>"
         "<a:String CONTENT='Abacus' HPOS='10.4' VPOS='20' WIDTH='80' HEIGHT='20' WC='0.9' STYLE='bold'>"
         "<a:ALTERNATIVE>Abacas</a:ALTERNATIVE></a:String><a:SP/>"
         "<a:String CONTENT='' HPOS='1' VPOS='1' WIDTH='8' HEIGHT='2'/></a:TextLine><a:TextLine/>"
         "<a:TextLine><a:String CONTENT='x' HPOS='-99999999999' VPOS='nan' WIDTH='-5' "
         "HEIGHT='99999999999'/></a:TextLine>"
         "</a:PrintSpace></a:Page></a:Layout></a:alto>",
         "600x800 Abacus@10,20,80,20/90*|Abacas; x@-10000000,0,0,10000000;"},
        {"no ALTO", readAlto, "<Page WIDTH='6' HEIGHT='8'><String CONTENT='x'/></Page>", "none"},
        {"deep", readAlto, "<alto><Page WIDTH='6' HEIGHT='8'>" + repeated("<TextLine>", 300'000), "6x8"},
        {"entities", readAlto,
         "<!DOCTYPE a [<!ENTITY b SYSTEM '/etc/passwd'>]><alto><Page WIDTH='6' HEIGHT='8'><TextLine>"
         "<String CONTENT='&b;' WIDTH='2' HEIGHT='2'/></TextLine></Page></alto>",
         "6x8 &b;@0,0,2,2;"},
        {"pdftotext", readPdfText,
         "<html><head><meta name='x' content='y'/></head><body><doc><page width='60.0' height='80.0'><flow><block>"
         "<line xMin='1' yMin='2' xMax='3' yMax='4'><word xMin='1.23' yMin='2' xMax='3' yMax='4'>a&lt;b</word></line>",
         "600x800 a<b@12,20,18,20;"},
        {"DjVu", readDjvuText,
         "(page 0 0 600 800\n (column 0 0 600 800 (line 10 760 200 780\n  (word 10 760 90 780 \"Ab\\\"\\303\\251\")\n"
         "  (word 100 760 200 780 (char 100 760 150 780 \"x\") (char 150 760 200 780 \"y\")))\n"
         " (line 10 700 210 720 \"one two\")) (para 0 0 9 9 \"no place\"))",
         "600x800 Ab\"é@10,20,80,20 xy@100,20,100,20; one@10,80,85,20 two@124,80,86,20;"},
        {"DjVu, cut off", readDjvuText, "(page 0 0 600 800 (line 10 760 200 780 (word 10 760 90 780 \"Ab\\",
         "600x800 Ab\\@10,20,80,20;"},
        {"DjVu, absurd", readDjvuText, "(word -99999999999 1 2 3 \"x\"))))(\"y\"", "none"},
        {"DjVu, deep", readDjvuText, "(page 0 0 600 800" + repeated("(line 1 1 9 9", 300'000), "none"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        EXPECT_EQ(asText(each.read(each.text)), each.expected);
    }
}

} // namespace
} // namespace velmarin
