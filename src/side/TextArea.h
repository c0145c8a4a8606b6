#pragma once

#include "side/AnswerText.h"

#include <QTextEdit>

#include <optional>
#include <string_view>

namespace velmarin {

/// The styled text of the side window. Its selection is drawn only while it has the focus.
class TextArea : public QTextEdit, public AnswerText {
    Q_OBJECT
  public:
    explicit TextArea(QWidget* parent = nullptr);

    QString Text() const { return toPlainText(); }
    /// Replaces the whole text, without styles, and puts the insertion point at its end.
    void setWholeText(const QString& text);
    int SelStart() const { return textCursor().selectionStart(); }
    int SelLength() const { return textCursor().selectionEnd() - textCursor().selectionStart(); }
    /// The size of all text that has none of its own, in points.
    void setTextSize(double points);

    int textLength() const override;
    void clearText() override { setWholeText(QString()); }
    void assignWithAppended(std::string_view text) override;
    std::optional<TextHit> findWord(int start, std::string_view word) const override;
    void select(int start, int length) override;
    void setSelText(std::string_view text) override;
    void setSelTextColor(TextColor color) override;
    void clearSelTextColor() override;
    double SelTextSize() const override;
    void setSelTextSize(double points) override;
    void setSelBold(bool bold) override;
    void scrollToLineOf(int position) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// Only plain text can be pasted and dropped: Qt 6.4 crashes on an offer without any format, which is what an empty
    /// clipboard makes.
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    /// The nearest position inside the text.
    int insideText(int position) const;
};

} // namespace velmarin
