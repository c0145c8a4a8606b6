#include "controls/PushButton.h"

#include <QPainter>

namespace velmarin {

void PushButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2.5, 2.5);
}

} // namespace velmarin
