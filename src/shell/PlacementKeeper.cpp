#include "shell/PlacementKeeper.h"

#include "controls/ScreenFit.h"
#include "shell/PreferenceWriter.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>

namespace velmarin {

namespace {

/// In pixels: no desktop is as large.
constexpr int kFarthest = 1 << 20;

} // namespace

void PlacementKeeper::setFirstPlacement(const QSize& content, int besideIt) {
    const QSize designed(content.width(), content.height() + window_.menuBar()->sizeHint().height());
    const WindowPlace place = firstPlace(designed, besideIt, window_.screen()->availableGeometry());
    window_.move(place.topLeft());
    window_.resize(place.size());
}

void PlacementKeeper::restore() {
    const auto saved = preferences_.placement();
    if (!saved)
        return;
    const QWidget& content = *window_.centralWidget();
    // A window takes memory for its whole area, seen or not.
    const QSize largest = (2 * window_.screen()->virtualSize()).expandedTo(content.minimumSize());
    const int width = std::clamp(saved->width, content.minimumWidth(), largest.width());
    const int height = std::clamp(saved->height, content.minimumHeight(), largest.height());
    const WindowPlace place =
        withinReach({std::clamp(saved->left, -kFarthest, kFarthest), std::clamp(saved->top, -kFarthest, kFarthest),
                     width, height + window_.menuBar()->heightForWidth(width)},
                    screenAreas());
    const QScopedValueRollback placing(placedForUser_, true);
    window_.move(place.topLeft());
    window_.resize(place.size());
}

void PlacementKeeper::save() {
    const WindowPlacement here{.left = window_.x(),
                               .top = window_.y(),
                               .width = window_.centralWidget()->width(),
                               .height = window_.centralWidget()->height()};
    if (placedForUser_) {
        placedAt_ = here;
    } else if (here != placedAt_) {
        // From now on a move back to that placement counts as well.
        placedAt_.reset();
        preferences_.writePlacement(here);
    }
}

} // namespace velmarin
