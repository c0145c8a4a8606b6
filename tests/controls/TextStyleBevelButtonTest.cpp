#include "controls/TextStyleBevelButton.h"
#include "controls/ListBox.h"
#include "controls/PopupMenu.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// The size of the character at a position of a text, the control's own where none is laid over it.
double sizeAt(const QTextEdit& edit, int position) {
    QTextCursor cursor(edit.document());
    cursor.setPosition(position + 1);
    const double laid = cursor.charFormat().fontPointSize();
    return laid > 0 ? laid : edit.font().pointSizeF();
}

struct SizeButton : ::testing::Test {
    TextSizeBevelButton button;
    void SetUp() override { button.Event_Open(); }
};

TEST_F(SizeButton, AppliesTheFirstSizeForOneThatIsNotInTheMenu) {
    EXPECT_EQ(button.CurrentFontSize, 14);
    const std::pair<int, int> cases[] = {{9, 9}, {10, 10}, {18, 18}, {40, 40}, {11, 9}, {42, 9}};
    for (const auto& [asked, applied] : cases) {
        button.SelectMenuFromFontSize(asked);
        EXPECT_EQ(button.CurrentFontSize, applied) << "without targets too";
        EXPECT_EQ(button.shownText().toInt(), applied);
    }
    EXPECT_EQ(button.GetFontSize(-2), 12);
    EXPECT_EQ(button.GetFontSize(16), 40);
    EXPECT_EQ(button.GetFontSize(17), 10);
}

/// Gives a widget a font of a size that is not in the menu.
void setOldSize(QWidget& widget) {
    QFont font = widget.font();
    font.setPointSizeF(11);
    widget.setFont(font);
}

TEST_F(SizeButton, PlainTargetsTakeTheSizeAsAWholeOrNotAtAll) {
    PopupMenu popup;
    ListBox list;
    QTextEdit area;
    QLineEdit field;
    QPlainTextEdit plain;
    QLabel label;
    BevelButton bevel;
    QCheckBox other;
    for (QWidget* target :
         std::initializer_list<QWidget*>{&popup, &list, &area, &field, &plain, &label, &bevel, &other}) {
        SCOPED_TRACE(target->metaObject()->className());
        setOldSize(*target);
        TextSizeBevelButton sizes;
        sizes.Event_Open();
        QSignalSpy told(&sizes, &TextSizeBevelButton::Action);
        sizes.SetObjObject(target);
        sizes.setMenuValue(8);
        emit sizes.rowChosen(8);
        EXPECT_EQ(target->font().pointSizeF(), target == &other ? 11 : 24);
        ASSERT_EQ(told.count(), 1) << "whatever its kind";
        EXPECT_EQ(told.first().at(0).value<std::int32_t>(), 24);
        EXPECT_EQ(told.first().at(1).value<QWidget*>(), target);
    }
}

/// A text whose characters from `from` to `to` are selected.
void select(QTextEdit& edit, int from, int to) {
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
}

TEST(StyledTexts, TakeTheSizeForTheSelection) {
    const struct {
        const char* name;
        bool oneLine, styled;
        int from, to;      ///< what is selected beforehand
        double base;       ///< the control's size afterwards
        std::string sizes; ///< of the characters: o old, n new
        int selected;      ///< characters selected afterwards
    } cases[] = {
        {"an area without a selection is selected whole", false, false, 2, 2, 20, "nnnn", 4},
        {"an area with a selection keeps it", false, true, 1, 3, 20, "nnnn", 2},
        {"a styled field changes its selection", true, true, 1, 3, 11, "onno", 2},
        {"a plain field changes as a whole", true, false, 1, 3, 20, "nnnn", 2},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        QTextEdit edit;
        setOldSize(edit);
        if (row.oneLine)
            edit.document()->setMaximumBlockCount(1);
        edit.setPlainText("amor");
        select(edit, row.from, row.to);
        TextSizeBevelButton button;
        button.Event_Open();
        button.Styled = row.styled;
        button.SetObjObject(&edit);
        button.SelectMenuFromFontSize(20);
        EXPECT_EQ(edit.font().pointSizeF(), row.base);
        std::string sizes;
        for (int i = 0; i < 4; ++i)
            sizes += sizeAt(edit, i) == 20 ? 'n' : 'o';
        EXPECT_EQ(sizes, row.sizes);
        EXPECT_EQ(edit.textCursor().selectedText().size(), row.selected);
    }
}

TEST_F(SizeButton, FirstVisibleLineOfATextStaysTheFirst) {
    QTextEdit edit;
    edit.resize(200, 300);
    QString text;
    for (int line = 0; line < 400; ++line)
        text += QStringLiteral("line %1, which is too long to fit in the width\n").arg(line);
    edit.setPlainText(text);
    edit.show();
    button.SetObjObject(&edit);
    button.SelectMenuFromFontSize(10);
    const auto firstLine = [&] { return edit.cursorForPosition(QPoint(0, 1)).block().blockNumber(); };
    for (const int line : {0, 1, 200, 380}) {
        const QTextCursor there(edit.document()->findBlockByNumber(line));
        edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->value() + edit.cursorRect(there).top());
        ASSERT_EQ(firstLine(), line);
        for (const int size : {20, 9, 36, 10}) {
            button.SelectMenuFromFontSize(size);
            EXPECT_EQ(firstLine(), line) << "at size " << size;
        }
    }
}

struct FontButton : ::testing::Test {
    TextFontBevelButton button;
    void SetUp() override {
        button.Event_Open();
        ASSERT_GE(button.FontArray.size(), 2u) << "the test needs two installed fonts";
    }
};

TEST_F(FontButton, LastRowOfANameCountsWhateverItsCaseAndAnUnknownOneGivesTheFirst) {
    EXPECT_EQ(button.CurrentFontName, "System");
    EXPECT_EQ(button.List(1), button.FontArray[1]);
    EXPECT_EQ(button.GetFontName(-1), button.FontArray[1]);
    EXPECT_EQ(button.GetFontName(static_cast<std::int32_t>(button.FontArray.size())), "System");
    button.FontArray = {"Serif", "Sans", "sans", "Mono"};
    button.setRows(button.FontArray);
    button.SelectMenuFromFontName("SANS");
    EXPECT_EQ(button.MenuValue(), 2);
    EXPECT_EQ(button.CurrentFontName, "sans");
    button.SelectMenuFromFontName("Gothic");
    EXPECT_EQ(button.MenuValue(), 0);
    EXPECT_EQ(button.CurrentFontName, "Serif");
}

TEST_F(FontButton, TextAreaTakesTheFontAsAWholeAndForItsSelection) {
    QTextEdit edit;
    edit.setPlainText("amor");
    button.SetObjObject(&edit);
    button.SelectMenuFromFontName(button.FontArray.back());
    EXPECT_EQ(edit.font().family().toStdString(), button.FontArray.back());
    EXPECT_EQ(edit.currentCharFormat().fontFamilies().toStringList(), QStringList(edit.font().family()));
    EXPECT_EQ(edit.textCursor().selectedText(), "amor");
}

} // namespace
} // namespace velmarin
