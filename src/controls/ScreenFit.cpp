#include "controls/ScreenFit.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace velmarin {

namespace {

/// Both side borders, and title bar with lower border: the largest of the usual themes.
constexpr QSize kFrame(12, 44);
constexpr int kTitleBar = 20;
/// The smallest part of the title bar by which a mouse can drag it.
constexpr QSize kHandle(40, 8);

QPoint clampedTopLeft(const WindowPlace& place, const QRect& screen) {
    const QSize outer = place.size() + kFrame;
    const auto inside = [](int at, int length, int from, int room) {
        return std::max(std::min(at, from + room - length), from);
    };
    return {inside(place.x(), outer.width(), screen.x(), screen.width()),
            inside(place.y(), outer.height(), screen.y(), screen.height())};
}

/// Whether enough of the title bar lies on one of the screens for a mouse to drag the window by it.
bool canBeDragged(const WindowPlace& place, const QList<QRect>& screens) {
    const QRect titleBar(place.topLeft(), QSize(place.width(), kTitleBar));
    return std::any_of(screens.begin(), screens.end(), [&titleBar](const QRect& screen) {
        const QRect part = titleBar.intersected(screen);
        return part.width() >= kHandle.width() && part.height() >= kHandle.height();
    });
}

QSize sizeThatFits(const QSize& wanted, const QSize& screen) {
    return wanted.boundedTo(screen - kFrame);
}

} // namespace

WindowPlace firstPlace(const QSize& wanted, int besideIt, const QRect& screen) {
    const QSize size = sizeThatFits(wanted, screen.size());
    const QSize left = screen.size() - size - kFrame - QSize(besideIt, 0);
    return {screen.topLeft() + QPoint(std::max(left.width(), 0) / 2, left.height() / 2), size};
}

QList<QRect> screenAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

WindowPlace withinReach(const WindowPlace& place, const QList<QRect>& screens) {
    if (screens.isEmpty() || canBeDragged(place, screens))
        return place;
    const auto distance = [&place](const QRect& screen) {
        return (clampedTopLeft(place, screen) - place.topLeft()).manhattanLength();
    };
    const QRect& nearest =
        *std::min_element(screens.begin(), screens.end(),
                          [&distance](const QRect& a, const QRect& b) { return distance(a) < distance(b); });
    const WindowPlace fitting(place.topLeft(), sizeThatFits(place.size(), nearest.size()));
    return {clampedTopLeft(fitting, nearest), fitting.size()};
}

} // namespace velmarin
