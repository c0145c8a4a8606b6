#include "controls/BevelPainting.h"

#include "controls/DevicePixels.h"

#include <QPainter>

namespace velmarin {

void paintBevel(QPainter& painter, const QRect& rect, const QPalette& palette, const BevelState& state) {
    const QColor face = palette.color(QPalette::Button);
    const bool pressed = state.down || state.checked;
    QColor top = face.lighter(107);
    QColor bottom = face.darker(105);
    if (pressed)
        top = bottom = face.darker(state.down ? 125 : 118);
    else if (state.hovered && state.enabled)
        top = bottom = face.lighter(112);

    const DevicePixels device(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const int line = device.length(1);
    QColor edge = face.darker(state.enabled ? 165 : 130);
    int thickness = line;
    if (state.focused) {
        edge = palette.color(QPalette::Highlight);
        thickness = 2 * line;
    }
    const qreal inset = thickness / 2.0;
    const QRectF frame = QRectF(device.rect(rect)).adjusted(inset, inset, -inset, -inset);
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.setBrush(fill);
    painter.setPen(QPen(edge, thickness));
    painter.drawRoundedRect(frame, 2.5 * line, 2.5 * line);
    if (pressed) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        const int left = qRound(frame.left() + inset) + line;
        const int right = qRound(frame.right() - inset) - line;
        painter.fillRect(left, qRound(frame.top() + inset), right - left, line, face.darker(145));
    }
}

void paintMenuArrow(QPainter& painter, const QRect& room, const QColor& color) {
    const DevicePixels device(painter);
    const int half = device.length(kMenuArrowWidth) / 2;
    const QRect pixels = device.rect(room);
    const int middle = pixels.right() - half;
    const int first = pixels.center().y() - half / 2;
    // Row by row, so that the slopes are even at any scale.
    for (int row = 0; row <= half; ++row)
        painter.fillRect(middle - half + row, first + row, 2 * (half - row) + 1, 1, color);
}

} // namespace velmarin
