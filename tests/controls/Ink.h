#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

namespace velmarin::test {

/// The widget as it is painted, at `scale` device pixels a logical one.
inline QImage painted(QWidget& widget, double scale = 1.0) {
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

/// The pixels in which two pictures of one size differ; null where they are equal.
inline QRect difference(const QImage& a, const QImage& b) {
    QRect box;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace velmarin::test
