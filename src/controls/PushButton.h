#pragma once

#include <QPushButton>

namespace velmarin {

/// A push button that shows the focus. In most styles a default button looks the same with and without it.
class PushButton : public QPushButton {
    Q_OBJECT
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velmarin
