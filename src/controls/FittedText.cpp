#include "controls/FittedText.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

template <typename Fits> QFont shrunk(QFont font, int smallest, Fits fits) {
    int size = QFontInfo(font).pixelSize();
    while (!fits(font) && size > smallest)
        font.setPixelSize(--size);
    return font;
}

} // namespace

QFont fontForHeight(const QFont& font, int height) {
    return shrunk(font, kSmallestPixelSize, [height](const QFont& tried) {
        const QFontMetrics metrics(tried);
        return metrics.ascent() + metrics.descent() <= height;
    });
}

QFont fontForWidth(const QFont& font, const QString& text, int width, int smallest) {
    return shrunk(font, smallest, [&](const QFont& tried) { return textWidth(tried, text) <= width; });
}

int textWidth(const QFont& font, const QString& text) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text)));
}

QString elidedInMiddle(const QFont& font, const QString& text, int width) {
    return QFontMetrics(font).elidedText(text, Qt::ElideMiddle, width);
}

} // namespace velmarin
