#pragma once

#include <QCursor>
#include <QPixmap>
#include <QSize>

#include <functional>

namespace velmarin {

/// The pictures of the side window, each drawn at a size in logical pixels for a screen of a device pixel ratio, and
/// the cursor over its small buttons.
struct SideArtwork {
    using Picture = std::function<QPixmap(QSize size, qreal devicePixelRatio)>;
    Picture Find;
    Picture DicApp;
    Picture Close;
    std::function<QCursor(qreal devicePixelRatio)> IndCursor;
};

} // namespace velmarin
