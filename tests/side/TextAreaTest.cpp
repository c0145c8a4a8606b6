#include "side/TextArea.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace velmarin {
namespace {

TEST(Pasting, TakesPlainTextAlone) {
    const struct {
        std::vector<std::pair<const char*, const char*>> formats;
        const char* text; ///< of "a|b" afterwards, with the bar selected before
    } cases[] = {{{}, "a|b"},
                 {{{"text/plain", ""}}, "a|b"},
                 {{{"image/png", "x"}}, "a|b"},
                 {{{"text/plain", "one\r\ntwo"}}, "aone\ntwob"},
                 {{{"text/html", "<h1>big</h1>"}, {"text/plain", "big"}}, "abigb"},
                 {{{"text/markdown", "# x"}, {"text/plain", "# big"}}, "a# bigb"}};
    for (const auto& each : cases) {
        auto offer = std::make_unique<QMimeData>();
        for (const auto& [format, data] : each.formats)
            offer->setData(format, data);
        QApplication::clipboard()->setMimeData(offer.release());
        TextArea area;
        area.setWholeText("a|b");
        area.select(1, 1);
        QTest::keyClick(&area, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(area.Text(), each.text);
        EXPECT_EQ(area.document()->find("big").charFormat().fontPointSize(), 0);
    }
}

TEST(TextArea, WritesAtTheInsertionPointInTheStyleThatWasSet) {
    TextArea area;
    area.setWholeText("before after");
    const auto styleOf = [&](const char* word) { return area.document()->find(QString(word)).charFormat(); };
    area.setTextSize(12.7);
    EXPECT_EQ(area.SelTextSize(), 12.7);
    area.select(6, 1);
    area.setSelTextColor({1, 2, 3});
    area.setSelTextSize(20);
    area.setSelBold(true);
    area.setSelText(" été ");
    EXPECT_EQ(area.SelStart(), 11);
    EXPECT_EQ(styleOf("été").foreground().color(), QColor(1, 2, 3));
    EXPECT_EQ(styleOf("été").fontPointSize(), 20);
    EXPECT_EQ(styleOf("été").fontWeight(), QFont::Bold);
    EXPECT_EQ(area.SelTextSize(), 20);
    area.setSelBold(false);
    area.clearSelTextColor();
    area.setSelText("plain");
    EXPECT_EQ(styleOf("plain").foreground().style(), Qt::NoBrush);
    EXPECT_NE(styleOf("plain").fontWeight(), QFont::Bold);

    area.select(-5, 9);
    EXPECT_EQ(area.SelLength(), 9) << "from the start of the text";
    area.select(2, 99);
    EXPECT_EQ(area.SelLength(), area.textLength() - 2);
    area.assignWithAppended("x");
    EXPECT_EQ(area.Text(), QString("before été plainafterx"));
    EXPECT_EQ(area.SelStart(), area.textLength());
    EXPECT_EQ(styleOf("été").fontPointSize(), 0) << "all styles are gone";
}

TEST(TextArea, FindsAWordInAParagraphFromAPosition) {
    constexpr const char* lines = "one\ntwo ONE\n\nthree";
    const struct {
        const char* text;
        int start;
        const char* word;
        int position;
    } cases[] = {{lines, -1, "one", 1},   {lines, 1, "One", 1},  {lines, 2, "one", 9},
                 {lines, 9, "one", 9},    {lines, 10, "one", 0}, {lines, 1, "three", 14},
                 {lines, 1, "onetwo", 0}, {lines, 99, "one", 0}, {"a\U0001F600\U0001F601", 1, "\U0001F601", 4}};
    for (const auto& each : cases) {
        TextArea area;
        area.setWholeText(each.text);
        const TextHit hit = area.findWord(each.start, each.word).value_or(TextHit{});
        EXPECT_EQ(hit.position, each.position) << each.start << " " << each.word;
        EXPECT_EQ(hit.length, each.position == 0 ? 0 : QString(each.word).size());
    }
}

TEST(TextArea, ScrollsALineToTheTopAsFarAsTheTextGoes) {
    TextArea area;
    area.resize(200, 100);
    area.show();
    area.setWholeText(QString("line\n").repeated(100));
    area.scrollToLineOf(250);
    QTextCursor cursor(area.document());
    cursor.setPosition(250);
    EXPECT_EQ(area.cursorRect(cursor).top(), 0);
    for (const bool toEnd : {false, true}) {
        area.scrollToLineOf(toEnd ? area.textLength() : 0);
        EXPECT_EQ(area.verticalScrollBar()->value(), toEnd ? area.verticalScrollBar()->maximum() : 0);
    }
}

TEST(TextArea, DrawsItsSelectionOnlyWithTheFocus) {
    TextArea area;
    QPalette palette = area.palette();
    palette.setColor(QPalette::Highlight, Qt::magenta);
    area.setPalette(palette);
    area.setWholeText("MMMM");
    area.select(0, 4);
    area.setSelTextColor({0xFF, 0, 0});
    const QImage image = area.viewport()->grab().toImage();
    std::set<QRgb> colors;
    for (int at = 0; at < 30 * 60; ++at)
        colors.insert(image.pixel(at % 60, at / 60));
    EXPECT_TRUE(colors.contains(QColor(Qt::red).rgb()));
    EXPECT_FALSE(colors.contains(QColor(Qt::magenta).rgb()));
}

} // namespace
} // namespace velmarin
