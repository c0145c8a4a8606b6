#include "workshop/StripView.h"

#include "view/CommandPainter.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace velmarin {

namespace {

constexpr double kDimmed = 0.55;
/// How much of the background covers what follows the strip on its page.
constexpr int kFade = 150;
constexpr int kBelowWords = 6;

QRect rectOf(const PageBox& box) {
    return {box.x, box.y, box.width, box.height};
}

} // namespace

StripView::StripView(Look look, QWidget* parent) : QWidget(parent), look_(look) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void StripView::showPage(Picture picture, const PageBox& strip, std::vector<PageBox> words) {
    picture_ = std::move(picture);
    strip_ = strip;
    words_ = std::move(words);
    notice_.clear();
    update();
}

void StripView::showNotice(const QString& text) {
    picture_ = Picture();
    notice_ = text;
    update();
}

void StripView::setZoom(double zoom) {
    zoom_ = zoom;
    update();
}

void StripView::setSide(StripSide side) {
    side_ = side;
    update();
}

void StripView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (picture_)
        return paintPage(painter, event->rect());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, notice_);
}

void StripView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit clicked();
}

StripRequest StripView::request(int height) const {
    return {.pageWidth = picture_.Width(),
            .pageHeight = picture_.Height(),
            .strip = strip_,
            .width = width(),
            .height = height,
            .zoom = zoom_,
            .side = side_};
}

void StripView::paintPage(QPainter& painter, const QRect& exposed) {
    if (look_ == Look::Dimmed)
        painter.setOpacity(kDimmed);
    paintStrip(painter, exposed, paintWords(painter, exposed));
}

int StripView::paintWords(QPainter& painter, const QRect& exposed) {
    int bottom = 0;
    for (const StripPiece& piece : planWords(request(height()), words_)) {
        const PageBox &to = piece.target, &from = piece.source;
        CommandPainter(painter, wordRenderer_, exposed, devicePixelRatioF())(
            PictureDrawn{picture_, to.x, to.y, to.width, to.height, from.x, from.y, from.width, from.height});
        bottom = to.bottom() + kBelowWords;
    }
    return bottom;
}

void StripView::paintStrip(QPainter& painter, const QRect& exposed, int top) {
    StripPlan plan = planStrip(request(height() - top));
    plan.target.y += top;
    plan.strip.y += top;
    const PageBox &to = plan.target, &from = plan.source;
    CommandPainter(painter, renderer_, exposed, devicePixelRatioF())(
        PictureDrawn{picture_, to.x, to.y, to.width, to.height, from.x, from.y, from.width, from.height});
    QColor fade = palette().color(QPalette::Window);
    fade.setAlpha(kFade);
    for (const QRect& rest : QRegion(rectOf(to)).subtracted(rectOf(plan.strip)))
        painter.fillRect(rest, fade);
}

} // namespace velmarin
