#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

namespace velmarin {

/// The program's own pictures, drawn at a size in logical pixels for a screen of a device pixel ratio, so that they are
/// sharp on every screen and cannot be missing. They can be read on light and dark backgrounds; the two logos need to
/// know which.
QPixmap Selorin_Logo_VerySmall(QSize size, qreal devicePixelRatio, bool onDark);
QPixmap Halvenmark(QSize size, qreal devicePixelRatio, bool onDark);
/// The icon of all windows.
QIcon programIcon();
/// The pictures for look-up, for find, and for the button that clears a field.
QPixmap DicApp(QSize size, qreal devicePixelRatio);
QPixmap Find(QSize size, qreal devicePixelRatio);
QPixmap Close(QSize size, qreal devicePixelRatio);

} // namespace velmarin
