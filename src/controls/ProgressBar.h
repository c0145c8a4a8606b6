#pragma once

#include <QProgressBar>
#include <QTimer>

namespace velmarin {

/// A plain bar that grows from the bottom or from the left. It repaints at once when its value changes, because the
/// loops that use it do not return to the event loop.
///
/// With a maximum of 0 the end is unknown: a short piece runs along the bar repeatedly while the bar is visible and the
/// loop lets events run.
class ProgressBar : public QProgressBar {
    Q_OBJECT
  public:
    explicit ProgressBar(Qt::Orientation orientation, QWidget* parent = nullptr);

    int Maximum() const { return maximum_; }
    /// A negative maximum counts as 0.
    void setMaximum(int maximum);
    int Value() const { return value_; }
    /// Clamped to 0..`Maximum`.
    void setValue(int value);
    /// Fills the bar whatever its maximum, until the next `setMaximum`.
    void showFull();

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    bool endIsUnknown() const { return maximum_ == 0 && !full_; }
    void refresh();
    void runWhileVisible();
    QRect runningPiece(const QRect& bar) const;

    int maximum_ = 100;
    int value_ = 0;
    bool full_ = false;
    QTimer step_{this};
    int stepsDone_ = 0;
};

} // namespace velmarin
