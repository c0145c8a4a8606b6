#pragma once

#include <QComboBox>

#include <any>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A pop-up menu of rows, each with a tag of any type. A row is picked only from the open list, by a click or Enter;
/// the wheel and the arrow keys on the closed control change nothing. Down, Up, Space, F4 and Alt with an arrow open
/// the list. Typing opens it and searches in it.
class PopupMenu : public QComboBox {
    Q_OBJECT
  public:
    explicit PopupMenu(QWidget* parent = nullptr);

    void AddRow(std::string text, std::any tag = {});
    /// Leaves no row picked and emits nothing.
    void DeleteAllRows();
    int rowCount() const { return static_cast<int>(rows_.size()); }
    /// The text exactly as it was added; empty for a missing row.
    std::string List(int row) const;
    /// Empty for a missing row.
    std::any Tag(int row) const;

    /// The picked row, or -1.
    int ListIndex() const { return currentIndex(); }
    /// Picks a row and emits `Change`. A missing row means none.
    void setListIndex(int row);
    /// The same without `Change`.
    void setListIndexQuietly(int row);

    /// Shown while no row is picked.
    void setPrompt(std::string_view prompt);
    /// The name for screen readers of a control without a visible label.
    void setLabel(std::string_view label);

    void showPopup() override;

  signals:
    /// Emitted on every pick, even of the current row.
    void Change();
    void MouseEntered();
    /// Emitted on a mouse press on the control, before the list opens.
    void MouseDown();
    /// Emitted when the user may be about to choose: the pointer or the focus enters, or the list is about to open. The
    /// owner may fill the rows and let events run meanwhile; the list opens when all handlers have returned.
    void aboutToChoose();

  protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    struct Row {
        std::string text;
        std::any tag;
    };
    /// Emits `aboutToChoose`, and then opens the list if that was requested. Does nothing if called from a handler.
    void announceChoice();
    void openList();
    QFont textFont() const;
    QString wholeText() const;
    int textRoom() const;

    std::vector<Row> rows_;
    bool announcing_ = false;
    bool openRequested_ = false;
};

} // namespace velmarin
