#pragma once

#include <QPushButton>

namespace velmarin {

/// A push button that shows the focus. A default button looks the same with and without it in most styles.
class PushButton : public QPushButton {
    Q_OBJECT
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velmarin
