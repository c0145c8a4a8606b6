#include "side/TextArea.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

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

int TextArea::held(int position) const {
    return std::clamp(position, 0, textLength());
}

void TextArea::select(int start, int length) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(held(start));
    cursor.setPosition(held(held(start) + std::max(length, 0)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void TextArea::setSelText(const QString& text) {
    QTextCursor cursor = textCursor();
    cursor.insertText(text, currentCharFormat());
    setTextCursor(cursor);
}

void TextArea::mergeStyle(const QTextCharFormat& style) {
    mergeCurrentCharFormat(style);
}

QColor TextArea::SelTextColor() const {
    const QBrush brush = currentCharFormat().foreground();
    return brush.style() == Qt::NoBrush ? palette().color(QPalette::Text) : brush.color();
}

void TextArea::setSelTextColor(const QColor& colour) {
    QTextCharFormat style;
    style.setForeground(colour);
    mergeStyle(style);
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
    // What the font was told to be, where it was told in points: on the screen it is rounded to pixels.
    return font().pointSizeF() > 0 ? font().pointSizeF() : QFontInfo(font()).pointSizeF();
}

void TextArea::setSelTextSize(double points) {
    QTextCharFormat style;
    style.setFontPointSize(points);
    mergeStyle(style);
}

void TextArea::setSelTextFont(const QString& family) {
    QTextCharFormat style;
    style.setFontFamilies({family});
    mergeStyle(style);
}

void TextArea::setSelBold(bool bold) {
    QTextCharFormat style;
    style.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    mergeStyle(style);
}

void TextArea::setTextFont(const QString& family) {
    QFont changed = font();
    changed.setFamilies({family});
    setFont(changed);
}

void TextArea::setTextSize(double points) {
    QFont changed = font();
    changed.setPointSizeF(points);
    setFont(changed);
}

void TextArea::scrollToLineOf(int position) {
    QTextCursor cursor(document());
    cursor.setPosition(held(position));
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
