#pragma once

#include <QColor>
#include <QWidget>

namespace velmarin {

/// The color well of the find bar: shows its color, and is clicked like a button.
class ColorRect : public QWidget {
    Q_OBJECT
  public:
    explicit ColorRect(QWidget* parent);

    QColor FillColor() const { return fillColor_; }
    void setFillColor(const QColor& color);

  signals:
    /// The mouse button was released after a press here, or a key activated the well.
    void clicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QColor fillColor_;
};

} // namespace velmarin
