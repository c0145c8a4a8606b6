#include "view/CommandPainter.h"

#include "platform/QtText.h"

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace velmarin {
namespace {

QColor colorOf(Color c) {
    return {c.red, c.green, c.blue};
}

QFont fontOf(const TextStyle& style) {
    QFont font = QGuiApplication::font();
    if (style.TextFont != "System")
        font.setFamily(toQ(style.TextFont));
    if (style.TextSize > 0)
        font.setPixelSize(style.TextSize);
    font.setBold(style.Bold);
    font.setItalic(style.Italic);
    return font;
}

/// Text laid out in lines of at most `wrapWidth`; longer words are broken.
class WrappedText {
  public:
    WrappedText(const std::string& text, int wrapWidth, const TextStyle& style) {
        QString all = toQ(text);
        all.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        for (const QString& paragraph : all.split(QLatin1Char('\n'))) {
            auto layout = std::make_unique<QTextLayout>(paragraph, fontOf(style));
            layout->setTextOption(option);
            layout->beginLayout();
            for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
                line.setLineWidth(std::max(wrapWidth, 1));
                line.setPosition(QPointF(0, height_));
                if (height_ == 0)
                    ascent_ = line.ascent();
                height_ += line.height();
            }
            layout->endLayout();
            layouts_.push_back(std::move(layout));
        }
    }

    qreal height() const { return height_; }

    void draw(QPainter& painter, qreal x, qreal firstBaseline) const {
        for (const auto& layout : layouts_)
            layout->draw(&painter, QPointF(x, firstBaseline - ascent_));
    }

  private:
    std::vector<std::unique_ptr<QTextLayout>> layouts_;
    qreal height_ = 0;
    qreal ascent_ = 0;
};

} // namespace

CommandPainter::CommandPainter(QPainter& painter, PageRenderer& renderer, const QRect& exposed, qreal scale)
    : painter_(painter), renderer_(renderer), scale_(scale) {
    const int left = static_cast<int>(std::floor(exposed.x() * scale));
    const int top = static_cast<int>(std::floor(exposed.y() * scale));
    clip_ = {left, top, static_cast<int>(std::ceil((exposed.x() + exposed.width()) * scale)) - left,
             static_cast<int>(std::ceil((exposed.y() + exposed.height()) * scale)) - top};
    painter_.save();
    painter_.scale(1 / scale, 1 / scale);
    // At a fractional scale the widget may start between two screen pixels; the page must not.
    const QPointF origin = painter_.deviceTransform().map(QPointF(0, 0));
    painter_.translate(std::round(origin.x()) - origin.x(), std::round(origin.y()) - origin.y());
}

CommandPainter::~CommandPainter() {
    painter_.restore();
}

QRect CommandPainter::device(double x, double y, double w, double h) const {
    const auto edge = [this](double at) { return static_cast<int>(std::lround(std::clamp(at * scale_, -1e6, 1e6))); };
    return {QPoint(edge(x), edge(y)), QPoint(edge(x + w) - 1, edge(y + h) - 1)};
}

int CommandPainter::pen(int width) const {
    return std::max(1, static_cast<int>(std::lround(width * scale_)));
}

void CommandPainter::operator()(const PictureDrawn& c) {
    const PixelBlock block = renderer_.render(c, scale_, clip_);
    if (block.empty())
        return;
    const QImage image(block.data, block.place.width, block.place.height, block.stride,
                       block.inColor ? QImage::Format_RGB32 : QImage::Format_Grayscale8);
    painter_.drawImage(QPoint(block.place.x, block.place.y), image);
}

void CommandPainter::operator()(const LineDrawn& c) {
    if (c.y1 == c.y2) {
        QRect line = device(std::min(c.x1, c.x2), c.y1, std::abs(c.x2 - c.x1) + 1, 1);
        line.setHeight(pen(c.penHeight));
        painter_.fillRect(line, colorOf(c.color));
        return;
    }
    painter_.setPen(QPen(colorOf(c.color), pen(c.penHeight)));
    painter_.drawLine(QPointF(c.x1 * scale_, c.y1 * scale_), QPointF(c.x2 * scale_, c.y2 * scale_));
}

void CommandPainter::operator()(const RectDrawn& c) {
    const QRect r = device(c.x, c.y, c.w, c.h);
    if (r.width() <= 0 || r.height() <= 0)
        return;
    const int wide = std::min(pen(c.penWidth), r.width()), high = std::min(pen(c.penHeight), r.height());
    const QColor color = colorOf(c.color);
    painter_.fillRect(r.x(), r.y(), r.width(), high, color);
    painter_.fillRect(r.x(), r.bottom() + 1 - high, r.width(), high, color);
    painter_.fillRect(r.x(), r.y(), wide, r.height(), color);
    painter_.fillRect(r.right() + 1 - wide, r.y(), wide, r.height(), color);
}

void CommandPainter::operator()(const RectFilled& c) {
    painter_.fillRect(device(c.x, c.y, c.w, c.h), colorOf(c.color));
}

void CommandPainter::operator()(const StringDrawn& c) {
    if (c.text.empty())
        return;
    painter_.save();
    painter_.scale(scale_, scale_);
    painter_.setPen(colorOf(c.color));
    WrappedText(c.text, c.wrapWidth, c.style).draw(painter_, c.x, c.y);
    painter_.restore();
}

int CommandPainter::heightOf(const std::string& text, int wrapWidth, const TextStyle& style) {
    return static_cast<int>(std::ceil(WrappedText(text, wrapWidth, style).height()));
}

} // namespace velmarin
