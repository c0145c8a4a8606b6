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

/// A button that lists the sizes and acts on one target, whose own size is not in the list.
struct SizeButton : TextSizeBevelButton {
    explicit SizeButton(QWidget* target = nullptr, bool styled = false) {
        Event_Open();
        Styled = styled;
        if (target == nullptr)
            return;
        QFont font = target->font();
        font.setPointSizeF(11);
        target->setFont(font);
        SetObjObject(target);
    }
};

TEST(TextSizes, TheFirstIsAppliedForOneThatIsNotInTheMenu) {
    SizeButton button;
    EXPECT_EQ(button.CurrentFontSize, 14);
    for (const auto& [asked, applied] : {std::pair(10, 10), {40, 40}, {11, 9}, {42, 9}}) {
        button.SelectMenuFromFontSize(asked);
        EXPECT_EQ(button.CurrentFontSize, applied);
        EXPECT_EQ(button.shownText().toInt(), applied);
    }
    for (const auto& [row, size] : {std::pair(-2, 12), {16, 40}, {17, 10}})
        EXPECT_EQ(button.GetFontSize(row), size);
}

TEST(TextSizes, PlainTargetsTakeTheSizeAsAWholeOrNotAtAll) {
    PopupMenu popup;
    ListBox list;
    QTextEdit area;
    QLineEdit field;
    QPlainTextEdit plain;
    QLabel label;
    BevelButton bevel;
    QCheckBox other;
    const std::initializer_list<QWidget*> targets{&popup, &list, &area, &field, &plain, &label, &bevel, &other};
    for (QWidget* target : targets) {
        SCOPED_TRACE(target->metaObject()->className());
        SizeButton sizes(target);
        QSignalSpy acted(&sizes, &TextSizeBevelButton::Action);
        sizes.setMenuValue(8);
        emit sizes.rowChosen(8);
        EXPECT_EQ(target->font().pointSizeF(), target == &other ? 11 : 24);
        ASSERT_EQ(acted.count(), 1);
        EXPECT_EQ(acted.first().at(0).value<std::int32_t>(), 24);
        EXPECT_EQ(acted.first().at(1).value<QWidget*>(), target);
    }
}

TEST(TextSizes, TextsTakeTheSizeForTheSelection) {
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
        QTextEdit edit("amor");
        edit.document()->setMaximumBlockCount(row.oneLine ? 1 : 0);
        SizeButton button(&edit, row.styled);
        QTextCursor cursor = edit.textCursor();
        cursor.setPosition(row.from);
        cursor.setPosition(row.to, QTextCursor::KeepAnchor);
        edit.setTextCursor(cursor);
        button.SelectMenuFromFontSize(20);
        EXPECT_EQ(edit.font().pointSizeF(), row.base);
        EXPECT_EQ(edit.textCursor().selectedText().size(), row.selected);
        std::string sizes;
        for (int i = 1; i <= 4; ++i) {
            cursor.setPosition(i);
            const double own = cursor.charFormat().fontPointSize();
            sizes += (own > 0 ? own : edit.font().pointSizeF()) == 20 ? 'n' : 'o';
        }
        EXPECT_EQ(sizes, row.sizes);
    }
}

TEST(TextSizes, FirstVisibleLineOfATextStaysTheFirst) {
    QTextEdit edit;
    edit.resize(200, 300);
    for (int line = 0; line < 400; ++line)
        edit.append("a line that is too long to fit in the width of the text");
    edit.show();
    SizeButton button(&edit);
    button.SelectMenuFromFontSize(10);
    for (const int line : {0, 1, 380}) {
        const QTextCursor there(edit.document()->findBlockByNumber(line));
        edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->value() + edit.cursorRect(there).top());
        for (const int size : {20, 9, 36, 10}) {
            button.SelectMenuFromFontSize(size);
            EXPECT_EQ(edit.cursorForPosition(QPoint(0, 1)).block().blockNumber(), line) << "at size " << size;
        }
    }
}

TEST(TextFonts, TheLastRowOfANameInAnyCaseIsAppliedAndTheFirstForAnUnknownOne) {
    TextFontBevelButton button;
    button.Event_Open();
    EXPECT_EQ(button.CurrentFontName, "System");
    ASSERT_GE(button.FontArray.size(), 2u) << "the test needs two installed fonts";
    const std::string last = button.FontArray.back();
    button.FontArray = {last, "Sans", "sans", "Mono"};
    button.setRows(button.FontArray);
    EXPECT_EQ(button.GetFontName(-1), "Sans");
    EXPECT_EQ(button.GetFontName(4), "System");
    button.SelectMenuFromFontName("SANS");
    EXPECT_EQ(button.MenuValue(), 2);
    EXPECT_EQ(button.CurrentFontName, "sans");
    QTextEdit edit("amor");
    button.SetObjObject(&edit);
    button.SelectMenuFromFontName("Gothic");
    EXPECT_EQ(button.CurrentFontName, last);
    EXPECT_EQ(edit.font().family().toStdString(), last);
    EXPECT_EQ(edit.currentCharFormat().fontFamilies().toStringList(), QStringList(edit.font().family()));
    EXPECT_EQ(edit.textCursor().selectedText(), "amor");
}

} // namespace
} // namespace velmarin
