#pragma once

#include <QCursor>

namespace velmarin {

// The system's own cursors, drawn for the pixels of the screen at hand. Each is made once for a scale and kept for the
// life of the process.

QCursor gripCursor(qreal devicePixelRatio); ///< a closed hand: the page is being dragged
QCursor handCursor(qreal devicePixelRatio); ///< an open hand: the page can be dragged
QCursor IndCursor(qreal devicePixelRatio);  ///< a pointing finger: a press here acts
QCursor lensCursor(qreal devicePixelRatio); ///< a magnifying glass, whose middle is the hot spot

} // namespace velmarin
