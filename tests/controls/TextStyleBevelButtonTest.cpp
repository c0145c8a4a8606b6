#include "controls/TextStyleBevelButton.h"
#include "controls/ListBox.h"
#include "controls/PopupMenu.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <memory>

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

TEST_F(SizeButton, MenuIsNineAndTheEvenSizesToForty) {
    std::vector<std::string> rows;
    for (int row = 0; row < button.rowCount(); ++row)
        rows.push_back(button.List(row));
    EXPECT_EQ(rows, (std::vector<std::string>{"9", "10", "12", "14", "16", "18", "20", "22", "24", "26", "28", "30",
                                              "32", "34", "36", "38", "40"}));
    EXPECT_EQ(button.CurrentFontSize, 14);
}

TEST_F(SizeButton, SizeThatIsNotInTheMenuAppliesTheFirst) {
    button.SelectMenuFromFontSize(18);
    EXPECT_EQ(button.MenuValue(), 5);
    EXPECT_EQ(button.CurrentFontSize, 18) << "without targets too";
    button.SelectMenuFromFontSize(11);
    EXPECT_EQ(button.CurrentFontSize, 9);
    EXPECT_EQ(button.shownText(), "9");
}

struct TargetCase {
    const char* name;
    std::unique_ptr<QWidget> (*make)();
    bool takes;
};

template <typename Widget> std::unique_ptr<QWidget> make() {
    return std::make_unique<Widget>();
}

class PlainTargets : public ::testing::TestWithParam<TargetCase> {};

TEST_P(PlainTargets, TakeTheSizeAsAWholeOrNotAtAll) {
    TextSizeBevelButton button;
    button.Event_Open();
    const std::unique_ptr<QWidget> target = GetParam().make();
    QFont font = target->font();
    font.setPointSizeF(11);
    target->setFont(font);
    QSignalSpy told(&button, &TextSizeBevelButton::Action);
    button.SetObjObject(target.get());
    button.SelectMenuFromFontSize(24);
    EXPECT_EQ(target->font().pointSizeF(), GetParam().takes ? 24 : 11);
    ASSERT_EQ(told.count(), 1) << "whatever its kind";
    EXPECT_EQ(told.first().at(0).value<std::int32_t>(), 24);
    EXPECT_EQ(told.first().at(1).value<QWidget*>(), target.get());
}

INSTANTIATE_TEST_SUITE_P(
    SizeButton, PlainTargets,
    ::testing::Values(TargetCase{"PopupMenu", make<PopupMenu>, true}, TargetCase{"ListBox", make<ListBox>, true},
                      TargetCase{"TextArea", make<QTextEdit>, true}, TargetCase{"TextField", make<QLineEdit>, true},
                      TargetCase{"TextEdit", make<QPlainTextEdit>, true}, TargetCase{"StaticText", make<QLabel>, true},
                      TargetCase{"BevelButton", make<BevelButton>, true},
                      TargetCase{"AnythingElse", make<QCheckBox>, false}),
    [](const auto& info) { return info.param.name; });

struct StyledCase {
    const char* name;
    bool oneLine, styled;
    int from, to;      ///< what is selected beforehand
    double base;       ///< the control's size afterwards, 11 before
    std::string sizes; ///< of the characters: o old, n new
    int selected;      ///< characters selected afterwards
};

class StyledTexts : public ::testing::TestWithParam<StyledCase> {};

TEST_P(StyledTexts, TakeTheSizeForTheSelection) {
    const StyledCase& row = GetParam();
    QTextEdit edit;
    QFont font = edit.font();
    font.setPointSizeF(11);
    edit.setFont(font);
    if (row.oneLine)
        edit.document()->setMaximumBlockCount(1);
    edit.setPlainText("amor");
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(row.from);
    cursor.setPosition(row.to, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);

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

INSTANTIATE_TEST_SUITE_P(
    SizeButton, StyledTexts,
    ::testing::Values(StyledCase{"AreaWithoutSelectionIsSelectedWhole", false, false, 2, 2, 20, "nnnn", 4},
                      StyledCase{"AreaWithSelectionKeepsIt", false, true, 1, 3, 20, "nnnn", 2},
                      StyledCase{"StyledFieldTakesItForTheSelection", true, true, 1, 3, 11, "onno", 2},
                      StyledCase{"PlainFieldTakesItAsAWhole", true, false, 1, 3, 20, "nnnn", 2}),
    [](const auto& info) { return info.param.name; });

TEST_F(SizeButton, SelectionKeepsItsSizeWhenTheBaseChangesLater) {
    QTextEdit edit;
    edit.setPlainText("amor");
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(0);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    button.SetObjObject(&edit);
    button.SelectMenuFromFontSize(30);
    cursor.setPosition(2);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    button.SelectMenuFromFontSize(12);
    EXPECT_EQ(sizeAt(edit, 0), 30);
    EXPECT_EQ(sizeAt(edit, 3), 12);
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

TEST_F(SizeButton, PickInTheMenuAppliesItself) {
    QLabel label;
    button.SetObjObject(&label);
    button.setMenuValue(3);
    emit button.rowChosen(3);
    EXPECT_EQ(label.font().pointSizeF(), 14);
    EXPECT_EQ(button.CurrentFontSize, 14);
}

struct FontButton : ::testing::Test {
    TextFontBevelButton button;
    void SetUp() override {
        button.Event_Open();
        ASSERT_GE(button.FontArray.size(), 2u) << "the test needs two installed fonts";
    }
};

TEST_F(FontButton, MenuIsTheInstalledFontsInTheirOrder) {
    EXPECT_EQ(button.FontArray.size(), static_cast<std::size_t>(QFontDatabase::families().size()));
    EXPECT_EQ(button.List(1), button.FontArray[1]);
    EXPECT_EQ(button.CurrentFontName, "System");
    EXPECT_EQ(button.GetFontName(-1), button.FontArray[1]);
    EXPECT_EQ(button.GetFontName(static_cast<std::int32_t>(button.FontArray.size())), "System");
}

TEST_F(FontButton, LastRowOfANameCountsWhateverItsCaseAndAnUnknownOneGivesTheFirst) {
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
    QLabel label;
    button.SetObjObject(&edit);
    button.SetObjObject(&label);
    const std::string name = button.FontArray.back();
    button.SelectMenuFromFontName(name);
    EXPECT_EQ(edit.font().family().toStdString(), name);
    EXPECT_EQ(edit.currentCharFormat().fontFamilies().toStringList().value(0).toStdString(), name);
    EXPECT_EQ(edit.textCursor().selectedText(), "amor");
    EXPECT_EQ(label.font().family().toStdString(), name);
}

} // namespace
} // namespace velmarin
