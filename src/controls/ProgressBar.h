#pragma once

#include <QProgressBar>

namespace velmarin {

/// A plain bar that grows from the bottom, or from the left. It paints itself the moment its value changes, since the
/// loops that it belongs to hold the event loop.
class ProgressBar : public QProgressBar {
    Q_OBJECT
  public:
    explicit ProgressBar(Qt::Orientation orientation, QWidget* parent = nullptr);

    int Maximum() const { return maximum_; }
    /// A negative one counts as 0. With 0 the bar stays empty.
    void setMaximum(int maximum);
    int Value() const { return value_; }
    /// Held between 0 and `Maximum`.
    void setValue(int value);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void tellBase();

    int maximum_ = 100;
    int value_ = 0;
};

} // namespace velmarin
