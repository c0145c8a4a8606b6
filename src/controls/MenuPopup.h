#pragma once

#include <QFrame>
#include <QListView>

class QAbstractButton;

namespace velmarin {

class RowModel;

/// The list in a MenuPopup. It highlights the row under the pointer, picks on release or Enter, and searches for typed
/// text.
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
    /// The row under the pointer; invalid for separators and outside.
    QModelIndex rowUnder(const QMouseEvent& event) const;
};

/// The pop-up window of a menu button. It opens at once however many rows there are, stays on the screen, and closes on
/// a pick, Escape or a press elsewhere. Destroys itself when closed.
class MenuPopup : public QFrame {
    Q_OBJECT
  public:
    /// `currentRow` is marked and scrolled to; -1: none.
    MenuPopup(RowModel* rows, int currentRow, QAbstractButton* owner);

    /// Opens below or above the owner, never over it: the release of the press that opened the menu picks nothing, but
    /// dragging to a row and releasing there picks it.
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
