#pragma once

#include "view/Graphics.h"
#include "view/PageRenderer.h"

#include <QRect>

#include <string>

class QPainter;

namespace velmarin {

/// Draws commands on the screen, converting control pixels to whole device pixels at any scale.
class CommandPainter {
  public:
    /// `painter` draws on a widget; the destructor restores its state. `exposed` is the part of the widget to draw, in
    /// control pixels; `scale` is the number of device pixels per control pixel.
    CommandPainter(QPainter& painter, PageRenderer& renderer, const QRect& exposed, qreal scale);
    ~CommandPainter();
    CommandPainter(const CommandPainter&) = delete;
    CommandPainter& operator=(const CommandPainter&) = delete;

    void operator()(const PictureDrawn& c);
    void operator()(const LineDrawn& c);
    void operator()(const RectDrawn& c);
    void operator()(const RectFilled& c);
    void operator()(const StringDrawn& c);

    /// The height of wrapped text, in control pixels.
    static int heightOf(const std::string& text, int wrapWidth, const TextStyle& style);

  private:
    QRect device(double x, double y, double w, double h) const;
    int pen(int width) const;

    QPainter& painter_;
    PageRenderer& renderer_;
    qreal scale_;
    DeviceRect clip_;
};

} // namespace velmarin
