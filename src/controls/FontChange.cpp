#include "controls/FontChange.h"

#include "controls/BevelButton.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

namespace velmarin {

namespace {

bool isOfOneFont(const QWidget* target) {
    return qobject_cast<const QComboBox*>(target) != nullptr ||
           qobject_cast<const QAbstractItemView*>(target) != nullptr ||
           qobject_cast<const QLineEdit*>(target) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(target) != nullptr || qobject_cast<const QLabel*>(target) != nullptr ||
           qobject_cast<const BevelButton*>(target) != nullptr;
}

/// Keeps the first line that is visible in a text where it is while the text changes its height.
class KeptLine {
  public:
    explicit KeptLine(QTextEdit& text)
        : text_(text), line_(text.cursorForPosition(QPoint(0, 1))), top_(top()), scroll_(*text.verticalScrollBar()),
          fromTheStart_(scroll_.value() == 0) {}
    ~KeptLine() { scroll_.setValue(fromTheStart_ ? 0 : scroll_.value() + top() - top_); }
    KeptLine(const KeptLine&) = delete;
    KeptLine& operator=(const KeptLine&) = delete;

  private:
    int top() const { return text_.cursorRect(line_).top(); }

    QTextEdit& text_;
    QTextCursor line_;
    int top_;
    QScrollBar& scroll_;
    bool fromTheStart_;
};

void applyBase(QWidget* target, const FontChange& style) {
    QFont font = target->font();
    style.base(font);
    target->setFont(font);
}

} // namespace

void applyFontChange(QWidget* target, const FontChange& style, bool styled) {
    auto* text = qobject_cast<QTextEdit*>(target);
    if (text == nullptr) {
        if (isOfOneFont(target))
            applyBase(target, style);
        return;
    }
    const KeptLine kept(*text);
    const bool isField = text->document()->maximumBlockCount() == 1;
    if (!isField || !styled)
        applyBase(text, style);
    if (!isField && !text->textCursor().hasSelection())
        text->selectAll();
    if (!isField || styled)
        text->mergeCurrentCharFormat(style.selection);
}

} // namespace velmarin
