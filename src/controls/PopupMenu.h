#pragma once

#include <QComboBox>

#include <any>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A pop-up of rows, each with a tag of any kind. A row is picked from the open list only, by a click or Enter: the
/// wheel and the arrow keys on the closed control change nothing. Down, Up, Space, F4 and Alt with an arrow open the
/// list, and so does typing, which searches in it.
class PopupMenu : public QComboBox {
    Q_OBJECT
  public:
    explicit PopupMenu(QWidget* parent = nullptr);

    void AddRow(std::string text, std::any tag = {});
    /// No row is picked then; nothing is emitted.
    void DeleteAllRows();
    int rowCount() const { return static_cast<int>(rows_.size()); }
    /// The row's text byte for byte as it was added; empty for a row that is not there.
    std::string List(int row) const;
    /// Empty for a row that is not there.
    std::any Tag(int row) const;

    /// The picked row, -1 for none.
    int ListIndex() const { return currentIndex(); }
    /// Picks a row as the user does, `Change` included. A row that is not there means none.
    void setListIndex(int row);
    void setListIndexQuietly(int row);

    /// Shown while no row is picked.
    void setPrompt(std::string_view prompt);
    /// What screen readers call the control where no label is seen beside it.
    void setLabel(std::string_view label);

    void showPopup() override;

  signals:
    /// Emitted on every pick, even of the current row.
    void Change();
    void MouseEntered();
    /// The mouse was pressed on the control; the list has not opened yet.
    void MouseDown();
    /// The user may be about to choose: the pointer or the focus came in, or the list is about to open.
    /// The owner may let events run while it fills the rows: the list opens at the end of that.
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
    /// Emits `aboutToChoose`, and then opens the list if that was asked for. Does nothing while it is under way.
    void tellOwner();
    void openList();
    QFont textFont() const;
    QString wholeText() const;
    int textRoom() const;

    std::vector<Row> rows_;
    bool telling_ = false;
    bool opensWhenTold_ = false;
};

} // namespace velmarin
