#include "controls/Cursors.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <cmath>
#include <map>
#include <utility>

namespace velmarin {
namespace {

constexpr int kSide = 24; // logical pixels

void addFinger(QPainterPath& path, qreal x, qreal y, qreal width, qreal height) {
    QPainterPath bar;
    bar.addRoundedRect(x, y, width, height, width / 2, width / 2);
    path = path.united(bar);
}

QPainterPath palm(qreal top) {
    QPainterPath path;
    path.addRoundedRect(5.5, top, 13, 21.5 - top, 4.5, 4.5);
    return path;
}

QPainterPath openHand() {
    QPainterPath path = palm(10);
    addFinger(path, 5.5, 4, 3.3, 12);
    addFinger(path, 8.8, 1.8, 3.3, 14);
    addFinger(path, 12.1, 2.3, 3.3, 14);
    addFinger(path, 15.3, 4.5, 3.2, 12);
    QPainterPath thumb;
    addFinger(thumb, 0, 0, 3.2, 9);
    return path.united(QTransform().translate(1.6, 12.5).rotate(-38).map(thumb));
}

QPainterPath closedHand() {
    QPainterPath path = palm(10);
    for (const qreal x : {5.5, 8.8, 12.1, 15.3})
        addFinger(path, x, x == 5.5 || x == 15.3 ? 8.6 : 7.6, 3.25, 7);
    QPainterPath thumb;
    addFinger(thumb, 0, 0, 3.2, 6);
    return path.united(QTransform().translate(3.4, 13).rotate(-25).map(thumb));
}

QPainterPath pointingHand() {
    QPainterPath path = palm(11.5);
    addFinger(path, 6.2, 1.6, 3.3, 15);
    for (const qreal x : {9.2, 12.2, 15.2})
        addFinger(path, x, 9.6, 3.3, 7);
    QPainterPath thumb;
    addFinger(thumb, 0, 0, 3.2, 7);
    return path.united(QTransform().translate(2.8, 13).rotate(-32).map(thumb));
}

QPixmap canvas(qreal ratio) {
    const int pixels = static_cast<int>(std::ceil(kSide * ratio));
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QCursor handOf(const QPainterPath& outline, const QPoint& hotSpot, qreal ratio) {
    QPixmap pixmap = canvas(ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(outline);
    painter.end();
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

QCursor lens(qreal ratio) {
    QPixmap pixmap = canvas(ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // White around black, visible on both ink and paper.
    for (const auto& [color, width] : {std::pair(QColor(Qt::white), 4.4), std::pair(QColor(Qt::black), 2.0)}) {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawEllipse(QPointF(9, 9), 6.2, 6.2);
        painter.drawLine(QPointF(13.8, 13.8), QPointF(20.5, 20.5));
    }
    painter.end();
    return QCursor(pixmap, 9, 9);
}

template <typename Make> QCursor cached(qreal ratio, Make make) {
    static std::map<qreal, QCursor> cursors; // one map per instantiation, so one per kind of cursor
    const auto found = cursors.find(ratio);
    return found != cursors.end() ? found->second : cursors.emplace(ratio, make(ratio)).first->second;
}

} // namespace

QCursor gripCursor(qreal devicePixelRatio) {
    return cached(devicePixelRatio, [](qreal ratio) { return handOf(closedHand(), QPoint(12, 13), ratio); });
}

QCursor handCursor(qreal devicePixelRatio) {
    return cached(devicePixelRatio, [](qreal ratio) { return handOf(openHand(), QPoint(12, 11), ratio); });
}

QCursor IndCursor(qreal devicePixelRatio) {
    return cached(devicePixelRatio, [](qreal ratio) { return handOf(pointingHand(), QPoint(8, 2), ratio); });
}

QCursor lensCursor(qreal devicePixelRatio) {
    return cached(devicePixelRatio, [](qreal ratio) { return lens(ratio); });
}

} // namespace velmarin
