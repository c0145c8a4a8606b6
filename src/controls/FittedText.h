#pragma once

#include <QFont>
#include <QString>

namespace velmarin {

/// Smaller text is unreadable.
inline constexpr int kSmallestPixelSize = 8;

/// `font`, reduced until a line fits `height` logical pixels, but not below `kSmallestPixelSize`. The layout's buttons
/// are 16 pixels high whatever the desktop's font is.
QFont fontForHeight(const QFont& font, int height);

/// `font`, reduced until `text` fits `width` logical pixels, but not below `smallest` pixels.
QFont fontForWidth(const QFont& font, const QString& text, int width, int smallest = kSmallestPixelSize);

/// The width of `text` in logical pixels, rounded up: a fraction too little would elide it.
int textWidth(const QFont& font, const QString& text);

/// `text`, with an ellipsis in its middle if it is wider than `width` logical pixels.
QString elidedInMiddle(const QFont& font, const QString& text, int width);

} // namespace velmarin
