#include "side/ColorRect.h"

#include "controls/DevicePixels.h"
#include "controls/FittedText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace velmarin {

ColorRect::ColorRect(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::TabFocus);
}

void ColorRect::setFillColor(const QColor& color) {
    fillColor_ = color;
    update();
}

void ColorRect::paintEvent(QPaintEvent*) {
    constexpr qreal kBorder = 3;
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect all = device.rect(rect());
    const int border = device.length(kBorder);
    const QColor dark = hasFocus() ? palette().color(QPalette::Highlight) : QColor(0x80, 0x80, 0x80);
    painter.fillRect(all, dark);
    // The two light sides meet the dark ones on the diagonal.
    QPolygon light;
    light << all.bottomLeft() + QPoint(0, 1) << all.bottomRight() + QPoint(1, 1) << all.topRight() + QPoint(1, 0)
          << all.topRight() + QPoint(1 - border, border) << all.bottomLeft() + QPoint(border, 1 - border);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(light);
    painter.fillRect(all.adjusted(border, border, -border, -border), fillColor_);
}

void ColorRect::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void ColorRect::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit clicked();
}

void ColorRect::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit clicked();
    else
        QWidget::keyPressEvent(event);
}

} // namespace velmarin
