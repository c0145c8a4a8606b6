#include "controls/AnchoredLayout.h"

#include <QCoreApplication>
#include <QEvent>
#include <QResizeEvent>
#include <QWidget>

#include <algorithm>

namespace velmarin {

namespace {

struct Span {
    int start;
    int length;
};

Span anchoredSpan(Span span, bool near, bool far, int growth) {
    if (!far)
        return span;
    if (near)
        return {span.start, std::max(0, span.length + growth)};
    return {span.start + growth, span.length};
}

} // namespace

QRect anchoredRect(const QRect& rect, Anchors anchors, const QSize& design, const QSize& actual) {
    const Span across = anchoredSpan({rect.x(), std::max(0, rect.width())}, anchors.testFlag(Anchor::Left),
                                     anchors.testFlag(Anchor::Right), actual.width() - design.width());
    const Span down = anchoredSpan({rect.y(), std::max(0, rect.height())}, anchors.testFlag(Anchor::Top),
                                   anchors.testFlag(Anchor::Bottom), actual.height() - design.height());
    return {across.start, down.start, across.length, down.length};
}

void setGeometryNow(QWidget* widget, const QRect& geometry) {
    const QSize before = widget->size();
    widget->setGeometry(geometry);
    if (widget->size() == before || !widget->testAttribute(Qt::WA_PendingResizeEvent))
        return;
    QResizeEvent resized(widget->size(), before);
    QCoreApplication::sendEvent(widget, &resized);
    widget->setAttribute(Qt::WA_PendingResizeEvent, false);
}

AnchoredLayout::AnchoredLayout(QWidget* parent, const QSize& design)
    : QObject(parent), parent_(parent), design_(design) {
    parent->installEventFilter(this);
}

void AnchoredLayout::add(QWidget* child, const QRect& rect, Anchors anchors) {
    if (Place* known = find(child)) {
        *known = {child, rect, anchors};
        place(*known);
        return;
    }
    places_.push_back({child, rect, anchors});
    connect(child, &QObject::destroyed, this, [this](const QObject* gone) {
        std::erase_if(places_, [gone](const Place& place) { return static_cast<QObject*>(place.child) == gone; });
    });
    place(places_.back());
}

void AnchoredLayout::setRect(QWidget* child, const QRect& rect) {
    if (Place* known = find(child)) {
        known->rect = rect;
        place(*known);
    }
}

QRect AnchoredLayout::rect(const QWidget* child) const {
    const auto known =
        std::find_if(places_.begin(), places_.end(), [child](const Place& p) { return p.child == child; });
    return known == places_.end() ? QRect() : known->rect;
}

void AnchoredLayout::apply() {
    // By index, because a resized child may add others.
    for (std::size_t i = 0; i < places_.size(); ++i)
        place(Place(places_[i]));
}

bool AnchoredLayout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent_ && event->type() == QEvent::Resize)
        apply();
    return QObject::eventFilter(watched, event);
}

void AnchoredLayout::place(const Place& place) const {
    setGeometryNow(place.child, anchoredRect(place.rect, place.anchors, design_, parent_->size()));
}

AnchoredLayout::Place* AnchoredLayout::find(const QWidget* child) {
    const auto known =
        std::find_if(places_.begin(), places_.end(), [child](const Place& p) { return p.child == child; });
    return known == places_.end() ? nullptr : &*known;
}

} // namespace velmarin
