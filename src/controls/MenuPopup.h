#pragma once

#include <QFrame>
#include <QListView>

class QAbstractButton;

namespace velmarin {

class RowModel;

/// The list inside a MenuPopup: highlights the row under the pointer, picks on release or Enter, searches as one types.
class MenuList : public QListView {
    Q_OBJECT
  public:
    explicit MenuList(QWidget* parent);

  signals:
    void picked(int row);
    void dismissed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    /// The row that can be picked there; an invalid one for separators and outside.
    QModelIndex rowUnder(const QMouseEvent& event) const;
};

/// The rows of a menu button as a pop-up window: opens at once however many rows there are, stays inside the screen,
/// and closes by a pick, Escape or a press elsewhere. Destroys itself when closed.
class MenuPopup : public QFrame {
    Q_OBJECT
  public:
    /// `currentRow` is marked and shown; -1: none.
    MenuPopup(RowModel* rows, int currentRow, QAbstractButton* owner);

    /// Shows it beside its owner, never over it: a mouse that is still down where it opened the menu picks nothing by
    /// its release there, and picks a row when it is drawn to that and released.
    void open();

  signals:
    void picked(int row);
    void closed();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    int contentWidth(int visibleRows) const;
    void place();

    RowModel* rows_;
    int currentRow_;
    QWidget* owner_;
    MenuList* list_;
};

} // namespace velmarin
