#pragma once

#include "maintenance/DictionaryOrder.h"

#include <QBasicTimer>
#include <QListView>

#include <string>
#include <vector>

namespace velmarin {

class OrderModel;

/// A list whose rows the user can reorder by dragging, or with Alt+Up and Alt+Down. Escape cancels a drag.
class OrderList : public QListView {
    Q_OBJECT
  public:
    explicit OrderList(QWidget* parent);

    void AddRow(std::string text);
    /// The rows from the top, with the same bytes as they were added.
    const std::vector<std::string>& rows() const;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    void move(int from, int before);
    void dragTo(const QPoint& position);
    void endDrag();
    int rowBefore(const QPoint& position) const;

    OrderModel* model_;
    QPoint pressedAt_;
    int pressedRow_ = -1;
    int dropBefore_ = -1; ///< the row below the drop position, -1 if no row is dragged
    QPoint draggedTo_;
    QBasicTimer scrolling_;
};

} // namespace velmarin
