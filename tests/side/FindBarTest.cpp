#include "SideFixture.h"

#include "controls/QtText.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

class FindBarTest : public test::SideTest {
  protected:
    FindBarTest() { open(); }
};

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

QColor wordColour(const QLineEdit& field) {
    return field.palette().color(QPalette::Text);
}

TEST_F(FindBarTest, StepsFromHitToHitAndPaintsThem) {
    EF().setWholeText("aba aba");
    struct Step {
        int start, length;
        const char* paint;
        bool missed;
    };
    FindEF().setText("ABA");
    for (const Step& step : {Step{0, 3, "rrr....", false}, Step{4, 3, "rrr.rrr", false}, Step{4, 3, "rrr.rrr", true},
                             Step{0, 3, "rrr.rrr", false}}) {
        QTest::keyClick(&FindEF(), Qt::Key_Return);
        EXPECT_EQ(EF().SelStart(), step.start);
        EXPECT_EQ(EF().SelLength(), step.length);
        EXPECT_EQ(paint(EF()), step.paint);
        EXPECT_EQ(wordColour(FindEF()), step.missed ? kGrey : QColor(Qt::black));
        EXPECT_EQ(side().pFindStartPosition(), step.missed ? 0 : step.start + 4) << "counted from 1";
    }
    EXPECT_EQ(FindEF().selectedText(), "ABA");
}

TEST_F(FindBarTest, FindsBeyondTheFirstParagraphAndNothingAcrossParagraphs) {
    EF().setWholeText("one\ntwo one\n\nthree");
    ask("one");
    QTest::keyClick(&FindEF(), Qt::Key_Return);
    EXPECT_EQ(EF().SelStart(), 8);
    ask("three");
    EXPECT_EQ(EF().SelStart(), 13);
    ask("onetwo");
    EXPECT_EQ(wordColour(FindEF()), kGrey);
}

TEST_F(FindBarTest, AnotherWordStartsFromTheTopInBlack) {
    EF().setWholeText("ab ac");
    ask("ac");
    ask("x");
    EXPECT_EQ(wordColour(FindEF()), kGrey);
    FindEF().setText("a");
    EXPECT_EQ(wordColour(FindEF()), QColor(Qt::black));
    EXPECT_EQ(side().pFindStartPosition(), -1);
    QTest::keyClick(&FindEF(), Qt::Key_Return);
    EXPECT_EQ(EF().SelStart(), 0);
}

TEST_F(FindBarTest, StartBehindAShortenedTextIsAMiss) {
    EF().setWholeText("xxxxxxxxxx aba");
    ask("aba");
    EF().setWholeText("aba");
    QTest::keyClick(&FindEF(), Qt::Key_Return);
    EXPECT_EQ(wordColour(FindEF()), kGrey);
    QTest::keyClick(&FindEF(), Qt::Key_Return);
    EXPECT_EQ(EF().SelStart(), 0);
    EXPECT_EQ(EF().SelLength(), 3);
}

TEST_F(FindBarTest, ButtonsWorkWhileThereIsAWordAndClearLeavesThePaint) {
    EF().setWholeText("aba");
    const FindBar& bar = side().findBar();
    const auto bothEnabled = [&] {
        EXPECT_EQ(bar.FindBV()->isEnabled(), bar.FindClBV()->isEnabled());
        return bar.FindBV()->isEnabled();
    };
    EXPECT_FALSE(bothEnabled());
    QTest::keyClick(&FindEF(), Qt::Key_Return);
    EXPECT_EQ(wordColour(FindEF()), kGrey) << "an empty word is not found";
    ask("aba");
    EXPECT_TRUE(bothEnabled());
    QTest::mouseClick(bar.FindClBV(), Qt::LeftButton);
    EXPECT_EQ(FindEF().text(), "");
    EXPECT_FALSE(bothEnabled());
    EXPECT_EQ(side().pFindStartPosition(), 0);
    EXPECT_EQ(paint(EF()), "rrr");
}

TEST_F(FindBarTest, PaintAtTheEndIsNotInheritedByTheNextAnswer) {
    for (const bool keepsTheText : {true, false}) {
        side().findBar().setTarget(FindTarget::Find);
        control<QCheckBox>("DontClearCB").setChecked(keepsTheText);
        EF().setWholeText("aba");
        EF().setTextSize(20);
        ask("aba");
        side().findBar().setTarget(FindTarget::DicApp);
        ask("amor");
        const std::string painted = paint(EF());
        EXPECT_EQ(painted.rfind('r') + 1, keepsTheText ? 3 : 0);
        EXPECT_GT(painted.size(), 3U);
    }
}

TEST_F(FindBarTest, ColourOfTheWellPaintsOverTheOldOne) {
    EF().setWholeText("ab");
    ask("ab");
    ColorRect& well = *side().findBar().FindColorRect();
    QTest::mouseClick(&well, Qt::LeftButton);
    EXPECT_EQ(well.FillColor(), kRed) << "a cancelled dialog leaves the colour";
    nextColour = Qt::blue;
    QTest::mouseClick(&well, Qt::LeftButton);
    EXPECT_EQ(well.FillColor(), QColor(Qt::blue));
    EXPECT_EQ(well.grab().toImage().pixelColor(8, 8), QColor(Qt::blue));
    ask("b");
    EXPECT_EQ(paint(EF()), "rb");
    nextColour = kRed;
    QTest::keyClick(&well, Qt::Key_Space);
    EXPECT_EQ(well.FillColor(), kRed);
}

TEST_F(FindBarTest, SelectedHitShowsItsPaintWhileTheTextHasNoFocus) {
    TextArea& area = EF();
    QPalette colours = area.palette();
    colours.setColor(QPalette::Highlight, Qt::magenta);
    area.setPalette(colours);
    area.setWholeText("MMMM");
    ask("MMMM");
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

TEST_F(FindBarTest, TabGoesToTheMainWindow) {
    QTest::keyClick(&FindEF(), Qt::Key_Tab);
    EXPECT_EQ(main.log.back(), "focus all");
}

TEST_F(FindBarTest, FocusTakesTheMainButtonsReturn) {
    QApplication::setActiveWindow(&side());
    FindEF().setFocus();
    EXPECT_EQ(main.log.back(), "no default");
    EF().setFocus();
    EXPECT_EQ(main.log.back(), "default");
}

} // namespace
} // namespace velmarin
