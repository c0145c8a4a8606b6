#pragma once

#include <QTextEdit>

#include <string_view>

namespace velmarin {

/// A styled text of many lines. Positions count from 0 in UTF-16 code units; styles are set on the selection, or where
/// nothing is selected for what is inserted next. The selection shows only while the text has the focus.
class TextArea : public QTextEdit {
    Q_OBJECT
  public:
    explicit TextArea(QWidget* parent = nullptr);

    QString Text() const { return toPlainText(); }
    int textLength() const;
    /// Replaces the whole text, without styles, and puts the insertion point at its end.
    void setWholeText(const QString& text);

    int SelStart() const { return textCursor().selectionStart(); }
    int SelLength() const { return textCursor().selectionEnd() - textCursor().selectionStart(); }
    /// Held to the text that there is.
    void select(int start, int length);
    /// Puts `text` in place of the selection; the insertion point stands behind it.
    void setSelText(const QString& text);

    QColor SelTextColor() const;
    void setSelTextColor(const QColor& colour);
    /// Gives the selection, or what is inserted next, the colour of plain text.
    void clearSelTextColor();
    /// In points.
    double SelTextSize() const;
    void setSelTextSize(double points);
    void setSelTextFont(const QString& family);
    void setSelBold(bool bold);

    /// The font of all text that has none of its own.
    void setTextFont(const QString& family);
    void setTextSize(double points);

    /// Scrolls so that the line with this position is the first visible one, as far as the text goes.
    void scrollToLineOf(int position);

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// Pasting and dropping take plain text alone: Qt 6.4 ends the program on an offer without any format, which is
    /// what an empty clipboard makes.
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    int held(int position) const;
    void mergeStyle(const QTextCharFormat& style);
};

} // namespace velmarin
