#include "side/TextArea.h"

#include "platform/QtText.h"
#include "side/FindInText.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace velmarin {

TextArea::TextArea(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

int TextArea::textLength() const {
    return document()->characterCount() - 1; // the document counts the end of its last paragraph
}

void TextArea::setWholeText(const QString& text) {
    setPlainText(text);
    moveCursor(QTextCursor::End);
    setCurrentCharFormat(QTextCharFormat());
    if (!text.isEmpty()) {
        QTextCursor all(document());
        all.select(QTextCursor::Document);
        all.setCharFormat(QTextCharFormat());
    }
}

void TextArea::assignWithAppended(std::string_view text) {
    setWholeText(Text() + toQ(text));
}

std::optional<TextHit> TextArea::findWord(int start, std::string_view word) const {
    const QString wanted = toQ(word);
    const auto units = [](const QString& text) {
        return std::u16string_view(QStringView(text).utf16(), static_cast<std::size_t>(text.size()));
    };
    const int from = std::max(start, 1) - 1;
    // One paragraph after the other, so that no more than one is copied.
    for (QTextBlock block = document()->findBlock(from); block.isValid(); block = block.next()) {
        const int inBlock =
            findIgnoringCase(std::max(from - block.position(), 0) + 1, units(block.text()), units(wanted));
        if (inBlock != 0)
            return TextHit{block.position() + inBlock, static_cast<int>(wanted.size())};
    }
    return std::nullopt;
}

int TextArea::insideText(int position) const {
    return std::clamp(position, 0, textLength());
}

void TextArea::select(int start, int length) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(insideText(start));
    cursor.setPosition(insideText(insideText(start) + std::max(length, 0)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void TextArea::setSelText(std::string_view text) {
    QTextCursor cursor = textCursor();
    cursor.insertText(toQ(text), currentCharFormat());
    setTextCursor(cursor);
}

void TextArea::setSelTextColor(TextColor color) {
    QTextCharFormat style;
    style.setForeground(QColor(color.red, color.green, color.blue));
    mergeCurrentCharFormat(style);
}

void TextArea::clearSelTextColor() {
    QTextCharFormat style = currentCharFormat();
    style.clearForeground();
    setCurrentCharFormat(style);
}

double TextArea::SelTextSize() const {
    const double own = currentCharFormat().fontPointSize();
    if (own > 0)
        return own;
    // The size that the font was given, if that was in points; QFontInfo gives it rounded to pixels.
    return font().pointSizeF() > 0 ? font().pointSizeF() : QFontInfo(font()).pointSizeF();
}

void TextArea::setSelTextSize(double points) {
    QTextCharFormat style;
    style.setFontPointSize(points);
    mergeCurrentCharFormat(style);
}

void TextArea::setSelBold(bool bold) {
    QTextCharFormat style;
    style.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    mergeCurrentCharFormat(style);
}

void TextArea::setTextSize(double points) {
    QFont changed = font();
    changed.setPointSizeF(points);
    setFont(changed);
}

void TextArea::scrollToLineOf(int position) {
    QTextCursor cursor(document());
    cursor.setPosition(insideText(position));
    const int top = verticalScrollBar()->value() + cursorRect(cursor).top();
    verticalScrollBar()->setValue(top <= document()->documentMargin() ? 0 : top);
}

bool TextArea::canInsertFromMimeData(const QMimeData* source) const {
    return source != nullptr && !source->text().isEmpty();
}

void TextArea::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source))
        return;
    QTextCursor cursor = textCursor();
    cursor.insertText(source->text(), QTextCharFormat());
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextArea::paintEvent(QPaintEvent* event) {
    if (hasFocus() || SelLength() == 0) {
        QTextEdit::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.clip = event->rect().translated(scrolled);
    painter.translate(-scrolled);
    painter.setClipRect(context.clip);
    document()->documentLayout()->draw(&painter, context);
}

} // namespace velmarin
