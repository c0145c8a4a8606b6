#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

namespace velmarin {

/// The program's own pictures, drawn at the asked size (logical pixels) for a screen of the given device pixel ratio,
/// so that they are sharp on every screen and cannot be missing. They can be read on light and on dark backgrounds; the
/// two logos are told which.
QPixmap Selorin_Logo_VerySmall(QSize size, qreal devicePixelRatio, bool onDark);
QPixmap Halvenmark(QSize size, qreal devicePixelRatio, bool onDark);
/// What stands for the program on its windows and in lists of them.
QIcon programIcon();
/// The pictures of the look-up and the find target, and of the button that empties a field.
QPixmap DicApp(QSize size, qreal devicePixelRatio);
QPixmap Find(QSize size, qreal devicePixelRatio);
QPixmap Close(QSize size, qreal devicePixelRatio);

} // namespace velmarin
