#pragma once

#include <QPainter>

namespace velmarin {

/// While it exists, `painter` works in device pixels, so that frames are sharp at any scale factor. Text is better
/// painted in logical pixels.
class DevicePixels {
  public:
    explicit DevicePixels(QPainter& painter);
    ~DevicePixels() { painter_.restore(); }
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

    /// The device pixels of a logical rectangle.
    QRect rect(const QRectF& logical) const { return toDevice_.mapRect(logical).toAlignedRect(); }
    /// The device pixels of a logical length, at least one.
    int length(qreal logical) const;

  private:
    QPainter& painter_;
    QTransform toDevice_;
};

} // namespace velmarin
