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

bool hasOneFont(const QWidget* target) {
    return qobject_cast<const QComboBox*>(target) != nullptr ||
           qobject_cast<const QAbstractItemView*>(target) != nullptr ||
           qobject_cast<const QLineEdit*>(target) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(target) != nullptr || qobject_cast<const QLabel*>(target) != nullptr ||
           qobject_cast<const BevelButton*>(target) != nullptr;
}

/// Keeps the first visible line of a text in its place while the height of lines changes.
class FirstLineKeeper {
  public:
    explicit FirstLineKeeper(QTextEdit& text)
        : text_(text), line_(text.cursorForPosition(QPoint(0, 1))), top_(top()), scroll_(*text.verticalScrollBar()),
          atTop_(scroll_.value() == 0) {}
    ~FirstLineKeeper() { scroll_.setValue(atTop_ ? 0 : scroll_.value() + top() - top_); }
    FirstLineKeeper(const FirstLineKeeper&) = delete;
    FirstLineKeeper& operator=(const FirstLineKeeper&) = delete;

  private:
    int top() const { return text_.cursorRect(line_).top(); }

    QTextEdit& text_;
    QTextCursor line_;
    int top_;
    QScrollBar& scroll_;
    bool atTop_;
};

void applyToControl(QWidget* target, const FontChange& change) {
    QFont font = target->font();
    change.applyTo(font);
    target->setFont(font);
}

} // namespace

void applyFontChange(QWidget* target, const FontChange& change, bool styled) {
    auto* text = qobject_cast<QTextEdit*>(target);
    if (text == nullptr) {
        if (hasOneFont(target))
            applyToControl(target, change);
        return;
    }
    const FirstLineKeeper keeper(*text);
    const bool isField = text->document()->maximumBlockCount() == 1;
    if (!isField || !styled)
        applyToControl(text, change);
    if (!isField && !text->textCursor().hasSelection())
        text->selectAll();
    if (!isField || styled)
        text->mergeCurrentCharFormat(change.format);
}

} // namespace velmarin
