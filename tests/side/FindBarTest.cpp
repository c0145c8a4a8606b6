#include "SideFixture.h"

#include "controls/QtText.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::SideFixture;

const QColor kRed(0xFF, 0, 0);
const QColor kGrey(0x66, 0x66, 0x66);

/// The colour of each character: r red, b blue, . any other.
std::string paint(const TextArea& area) {
    std::string colours;
    for (int at = 0; at < area.textLength(); ++at) {
        QTextCursor cursor(area.document());
        cursor.setPosition(at + 1);
        const QColor colour = cursor.charFormat().foreground().color();
        colours += colour == kRed ? 'r' : colour == QColor(Qt::blue) ? 'b' : '.';
    }
    return colours;
}

QColor wordColour(SideFixture& fixture) {
    return fixture.FindEF().palette().color(QPalette::Text);
}

TEST(FindBar, StepsFromHitToHitAndPaintsThem) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("aba aba");
    struct Step {
        int start, length;
        const char* paint;
        bool missed;
    };
    fixture.FindEF().setText("ABA");
    for (const Step& step : {Step{0, 3, "rrr....", false}, Step{4, 3, "rrr.rrr", false}, Step{4, 3, "rrr.rrr", true},
                             Step{0, 3, "rrr.rrr", false}}) {
        QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
        EXPECT_EQ(fixture.EF().SelStart(), step.start);
        EXPECT_EQ(fixture.EF().SelLength(), step.length);
        EXPECT_EQ(paint(fixture.EF()), step.paint);
        EXPECT_EQ(wordColour(fixture), step.missed ? kGrey : QColor(Qt::black));
    }
    EXPECT_EQ(fixture.FindEF().selectedText(), "ABA");
}

TEST(FindBar, FindsBeyondTheFirstParagraphAndNothingAcrossParagraphs) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("one\ntwo one\n\nthree");
    fixture.ask("one");
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
    EXPECT_EQ(fixture.EF().SelStart(), 8);
    fixture.ask("three");
    EXPECT_EQ(fixture.EF().SelStart(), 13);
    fixture.ask("onetwo");
    EXPECT_EQ(wordColour(fixture), kGrey);
}

TEST(FindBar, AnotherWordStartsFromTheTopInBlack) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("ab ac");
    fixture.ask("ac");
    fixture.ask("x");
    EXPECT_EQ(wordColour(fixture), kGrey);
    fixture.FindEF().setText("a");
    EXPECT_EQ(wordColour(fixture), QColor(Qt::black));
    EXPECT_EQ(fixture.side().pFindStartPosition(), -1);
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
    EXPECT_EQ(fixture.EF().SelStart(), 0);
}

TEST(FindBar, StartBehindAShortenedTextIsAMiss) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("xxxxxxxxxx aba");
    fixture.ask("aba");
    fixture.EF().setWholeText("aba");
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
    EXPECT_EQ(wordColour(fixture), kGrey);
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
    EXPECT_EQ(fixture.EF().SelStart(), 0);
    EXPECT_EQ(fixture.EF().SelLength(), 3);
}

TEST(FindBar, EmptyWordDisablesTheButtonsAndMisses) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("aba");
    EXPECT_FALSE(fixture.side().findBar().FindBV()->isEnabled());
    EXPECT_FALSE(fixture.side().findBar().FindClBV()->isEnabled());
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Return);
    EXPECT_EQ(wordColour(fixture), kGrey);
    QTest::keyClicks(&fixture.FindEF(), "a");
    EXPECT_TRUE(fixture.side().findBar().FindBV()->isEnabled());
    EXPECT_TRUE(fixture.side().findBar().FindClBV()->isEnabled());
}

TEST(FindBar, ClearButtonEmptiesTheWordAndLeavesThePaint) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("aba");
    fixture.ask("aba");
    QTest::mouseClick(fixture.side().findBar().FindClBV(), Qt::LeftButton);
    EXPECT_EQ(fixture.FindEF().text(), "");
    EXPECT_FALSE(fixture.side().findBar().FindBV()->isEnabled());
    EXPECT_FALSE(fixture.side().findBar().FindClBV()->isEnabled());
    EXPECT_EQ(fixture.side().pFindStartPosition(), 0);
    EXPECT_EQ(paint(fixture.EF()), "rrr");
}

TEST(FindBar, PaintAtTheEndIsNotInheritedByTheNextAnswer) {
    for (const bool keepsTheText : {true, false}) {
        SideFixture fixture;
        fixture.open();
        fixture.control<QCheckBox>("DontClearCB").setChecked(keepsTheText);
        fixture.EF().setWholeText("aba");
        fixture.EF().setTextSize(20);
        fixture.ask("aba");
        fixture.side().findBar().setTarget(FindTarget::DicApp);
        fixture.ask("amor");
        const std::string painted = paint(fixture.EF());
        EXPECT_EQ(painted.rfind('r') + 1, keepsTheText ? 3 : 0);
        EXPECT_GT(painted.size(), 3U);
    }
}

TEST(FindBar, ColourOfTheWellPaintsOverTheOldOne) {
    SideFixture fixture;
    fixture.open();
    fixture.EF().setWholeText("ab");
    fixture.ask("ab");
    ColorRect& well = *fixture.side().findBar().FindColorRect();
    QTest::mouseClick(&well, Qt::LeftButton);
    EXPECT_EQ(well.FillColor(), kRed) << "a cancelled dialogue leaves the colour";
    fixture.nextColour = Qt::blue;
    QTest::mouseClick(&well, Qt::LeftButton);
    EXPECT_EQ(well.FillColor(), QColor(Qt::blue));
    EXPECT_EQ(well.grab().toImage().pixelColor(8, 8), QColor(Qt::blue));
    fixture.ask("b");
    EXPECT_EQ(paint(fixture.EF()), "rb");
    fixture.nextColour = kRed;
    QTest::keyClick(&well, Qt::Key_Space);
    EXPECT_EQ(well.FillColor(), kRed);
}

TEST(FindBar, SelectedHitShowsItsPaintWhileTheTextHasNoFocus) {
    SideFixture fixture;
    fixture.open();
    TextArea& area = fixture.EF();
    QPalette colours = area.palette();
    colours.setColor(QPalette::Highlight, Qt::magenta);
    area.setPalette(colours);
    area.setWholeText("MMMM");
    fixture.ask("MMMM");
    ASSERT_FALSE(area.hasFocus());
    const QImage image = area.viewport()->grab().toImage();
    bool red = false, magenta = false;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 100; ++x) {
            red = red || image.pixelColor(x, y) == kRed;
            magenta = magenta || image.pixelColor(x, y) == QColor(Qt::magenta);
        }
    EXPECT_TRUE(red);
    EXPECT_FALSE(magenta);
}

TEST(FindBar, TabGoesToTheMainWindow) {
    SideFixture fixture;
    fixture.open();
    QTest::keyClick(&fixture.FindEF(), Qt::Key_Tab);
    EXPECT_EQ(fixture.main.log.back(), "focus all");
}

TEST(FindBar, FocusTakesTheMainButtonsReturn) {
    SideFixture fixture;
    fixture.open();
    QApplication::setActiveWindow(&fixture.side());
    fixture.FindEF().setFocus();
    EXPECT_EQ(fixture.main.log.back(), "no default");
    fixture.EF().setFocus();
    EXPECT_EQ(fixture.main.log.back(), "default");
}

} // namespace
} // namespace velmarin
