#pragma once

#include <QCursor>

namespace velmarin {

// The program's own cursors, drawn at the screen's scale. Each is made once per scale and kept for the life of the
// process.

QCursor gripCursor(qreal devicePixelRatio); ///< a closed hand: the page is being dragged
QCursor handCursor(qreal devicePixelRatio); ///< an open hand: the page can be dragged
QCursor IndCursor(qreal devicePixelRatio);  ///< a pointing finger: a click here does something
QCursor lensCursor(qreal devicePixelRatio); ///< a magnifying glass; the hot spot is its center

} // namespace velmarin
