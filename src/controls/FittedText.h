#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

namespace velmarin {

/// Smaller text cannot be read.
inline constexpr int kSmallestPixelSize = 8;

/// `font`, made smaller where a line of it is higher than `height` logical pixels, but not below what can be read. The
/// layout's buttons are 16 pixels high whatever the desktop's font is.
QFont fontForHeight(const QFont& font, int height);

/// `font`, made smaller as far as that lets `text` stand in `width` logical pixels, but not below `smallest` pixels.
QFont fontForWidth(const QFont& font, const QString& text, int width, int smallest = kSmallestPixelSize);

/// The logical pixels that `text` needs, rounded up: a fraction too little would cut it short.
int textWidth(const QFont& font, const QString& text);

/// `text` as it fits `width` logical pixels, with an ellipsis in its middle where it is too long.
QString elidedInMiddle(const QFont& font, const QString& text, int width);

/// Paints in device pixels for as long as it lives: coordinates are whole pixels of the screen at any scale factor, so
/// that frames come out sharp. Text is best painted outside of it.
class DevicePixels {
  public:
    explicit DevicePixels(QPainter& painter);
    ~DevicePixels() { painter_.restore(); }
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

    /// A logical rectangle on whole device pixels.
    QRect rect(const QRectF& logical) const { return toDevice_.mapRect(logical).toAlignedRect(); }
    /// A logical length in device pixels, at least one.
    int length(qreal logical) const;

  private:
    QPainter& painter_;
    QTransform toDevice_;
};

} // namespace velmarin
