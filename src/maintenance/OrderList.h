#pragma once

#include "maintenance/DictionaryOrder.h"

#include <QBasicTimer>
#include <QListView>

#include <string>
#include <vector>

namespace velmarin {

class OrderModel;

/// A list whose rows the user puts into another order: by dragging them, or with Alt+Up and Alt+Down. Escape ends a
/// drag without a change.
class OrderList : public QListView {
    Q_OBJECT
  public:
    explicit OrderList(QWidget* parent);

    void AddRow(std::string text);
    /// The rows from the top, byte for byte as they were added.
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
    int dropBefore_ = -1; ///< while a row is being dragged
    QPoint draggedTo_;
    QBasicTimer scrolling_;
};

} // namespace velmarin
