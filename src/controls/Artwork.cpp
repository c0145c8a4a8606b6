#include "controls/Artwork.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <functional>
#include <utility>

namespace velmarin {

namespace {

const QColor kInk(0x1f, 0x2a, 0x44);
const QColor kPaper(0xfb, 0xf7, 0xea);
const QColor kRibbon(0xa6, 0x30, 0x2a);
const QColor kRibbonOnDark(0xf0, 0x8a, 0x80);

QPixmap drawn(QSize size, qreal ratio, const std::function<void(QPainter&, QRectF)>& draw) {
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    draw(painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return picture;
}

/// An open book in a box of height `h` with its top left corner at `at`.
void drawBook(QPainter& p, QPointF at, qreal h) {
    const qreal w = h * 1.35;
    const QPointF spine(at.x() + w / 2, at.y() + h * 0.2);
    for (const qreal side : {-1.0, 1.0}) {
        QPainterPath leaf(spine);
        leaf.cubicTo(spine + QPointF(side * w * 0.12, -h * 0.16), spine + QPointF(side * w * 0.36, -h * 0.12),
                     spine + QPointF(side * w * 0.46, -h * 0.02));
        leaf.lineTo(spine + QPointF(side * w * 0.46, h * 0.6));
        leaf.cubicTo(spine + QPointF(side * w * 0.36, h * 0.5), spine + QPointF(side * w * 0.12, h * 0.46),
                     spine + QPointF(0, h * 0.62));
        leaf.closeSubpath();
        p.setPen(QPen(kInk, 1.2));
        p.setBrush(kPaper);
        p.drawPath(leaf);
        p.setPen(QPen(kInk, 0.8));
        for (const qreal line : {0.14, 0.27, 0.4})
            p.drawLine(spine + QPointF(side * w * 0.1, h * line), spine + QPointF(side * w * 0.38, h * (line - 0.02)));
    }
}

void drawWord(QPainter& p, QRectF box, const QString& word, QColor color, bool italic) {
    QFont font(QStringLiteral("serif"));
    font.setStyleHint(QFont::Serif);
    font.setItalic(italic);
    font.setBold(!italic);
    font.setPixelSize(qMax(6, qRound(box.height() * 0.55)));
    while (font.pixelSize() > 6 && QFontMetricsF(font).horizontalAdvance(word) > box.width())
        font.setPixelSize(font.pixelSize() - 1);
    p.setFont(font);
    p.setPen(color);
    p.drawText(box, Qt::AlignVCenter | Qt::AlignLeft, word);
}

} // namespace

QPixmap Selorin_Logo_VerySmall(QSize size, qreal ratio, bool onDark) {
    return drawn(size, ratio, [onDark](QPainter& p, QRectF box) {
        const qreal h = box.height() * 0.8;
        drawBook(p, QPointF(1, box.height() * 0.12), h);
        drawWord(p, box.adjusted(h * 1.35 + 6, 0, 0, 0), QStringLiteral("Selorin"), onDark ? kPaper : kInk, false);
    });
}

QPixmap Halvenmark(QSize size, qreal ratio, bool onDark) {
    return drawn(size, ratio, [ink = onDark ? kRibbonOnDark : kRibbon](QPainter& p, QRectF box) {
        const qreal h = box.height();
        QPainterPath ribbon(QPointF(h * 0.35, h * 0.12));
        ribbon.lineTo(h * 0.85, h * 0.12);
        ribbon.lineTo(h * 0.85, h * 0.9);
        ribbon.lineTo(h * 0.6, h * 0.68);
        ribbon.lineTo(h * 0.35, h * 0.9);
        ribbon.closeSubpath();
        p.setPen(Qt::NoPen);
        p.setBrush(ink);
        p.drawPath(ribbon);
        drawWord(p, box.adjusted(h * 0.8 + 8, 0, 0, 0), QStringLiteral("Halvenmark"), ink, true);
    });
}

QIcon programIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(drawn({side, side}, 1, [side](QPainter& p, QRectF box) {
            p.setPen(Qt::NoPen);
            p.setBrush(kPaper);
            p.drawRoundedRect(box, side * 0.18, side * 0.18);
            drawBook(p, QPointF(side * 0.06, side * 0.18), side * 0.65);
        }));
    return icon;
}

QPixmap DicApp(QSize size, qreal ratio) {
    return drawn(size, ratio, [](QPainter& p, QRectF box) {
        drawBook(p, QPointF(box.width() * 0.02, box.height() * 0.16), box.height() * 0.72);
    });
}

QPixmap Find(QSize size, qreal ratio) {
    return drawn(size, ratio, [](QPainter& p, QRectF box) {
        const qreal s = box.height();
        p.setBrush(kPaper);
        // The light edge shows on dark backgrounds.
        for (const auto& [color, width] : {std::pair(kPaper, s * 0.2), std::pair(kInk, s * 0.11)}) {
            p.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(s * 0.6, s * 0.6), QPointF(s * 0.84, s * 0.84));
            p.drawEllipse(QPointF(s * 0.42, s * 0.42), s * 0.24, s * 0.24);
        }
    });
}

QPixmap Close(QSize size, qreal ratio) {
    return drawn(size, ratio, [](QPainter& p, QRectF box) {
        const qreal s = box.height();
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0x80, 0x80, 0x80));
        p.drawEllipse(box.adjusted(s * 0.06, s * 0.06, -s * 0.06, -s * 0.06));
        p.setPen(QPen(Qt::white, s * 0.12, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(s * 0.34, s * 0.34), QPointF(s * 0.66, s * 0.66));
        p.drawLine(QPointF(s * 0.66, s * 0.34), QPointF(s * 0.34, s * 0.66));
    });
}

} // namespace velmarin
