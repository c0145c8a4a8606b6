#include "controls/FittedText.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int smallestPixelSize = 8;

template <typename Fits> QFont shrunk(QFont font, int smallest, Fits fits) {
    int size = QFontInfo(font).pixelSize();
    while (!fits(QFontMetrics(font)) && size > smallest) {
        font.setPixelSize(--size);
    }
    return font;
}

} // namespace

QFont fontForHeight(QFont font, int height) {
    return shrunk(std::move(font), smallestPixelSize,
                  [height](const QFontMetrics& metrics) { return metrics.ascent() + metrics.descent() <= height; });
}

QFont fontForWidth(QFont font, const QString& text, int width) {
    const int smallest = std::max(smallestPixelSize, QFontInfo(font).pixelSize() * 3 / 4);
    return shrunk(std::move(font), smallest,
                  [&](const QFontMetrics& metrics) { return metrics.horizontalAdvance(text) <= width; });
}

QString elidedInMiddle(const QFont& font, const QString& text, int width) {
    return QFontMetrics(font).elidedText(text, Qt::ElideMiddle, width);
}

DevicePixels::DevicePixels(QPainter& painter) : painter_(painter) {
    painter_.save();
    toDevice_ = painter_.deviceTransform();
    painter_.resetTransform();
    painter_.setWorldTransform(painter_.deviceTransform().inverted());
}

int DevicePixels::length(qreal logical) const {
    return std::max(1, qRound(logical * toDevice_.m11()));
}

} // namespace velmarin
