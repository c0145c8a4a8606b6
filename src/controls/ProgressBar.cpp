#include "controls/ProgressBar.h"

#include "controls/FittedText.h"

#include <QPainter>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int thickness = 12;

} // namespace

ProgressBar::ProgressBar(Qt::Orientation orientation, QWidget* parent) : QProgressBar(parent) {
    setOrientation(orientation);
    setTextVisible(false);
    tellBase();
}

void ProgressBar::setMaximum(int maximum) {
    maximum_ = std::max(0, maximum);
    value_ = std::min(value_, maximum_);
    tellBase();
    repaint();
}

void ProgressBar::setValue(int value) {
    value_ = std::clamp(value, 0, maximum_);
    tellBase();
    repaint();
}

void ProgressBar::tellBase() {
    // The base class is what screen readers ask; a range of nothing would mean to it that the end is unknown.
    setRange(0, std::max(1, maximum_));
    QProgressBar::setValue(value_);
}

QSize ProgressBar::sizeHint() const {
    return orientation() == Qt::Vertical ? QSize(thickness, 10 * thickness) : QSize(10 * thickness, thickness);
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect whole = device.rect(rect());
    const int line = device.length(1);
    painter.fillRect(whole, palette().color(QPalette::Mid));
    QRect bar = whole.adjusted(line, line, -line, -line);
    painter.fillRect(bar, palette().color(QPalette::Base));
    const double share = maximum_ > 0 ? static_cast<double>(value_) / maximum_ : 0.0;
    if (orientation() == Qt::Vertical)
        bar.setTop(bar.bottom() + 1 - qRound(share * bar.height()));
    else
        bar.setWidth(qRound(share * bar.width()));
    painter.fillRect(bar, palette().color(QPalette::Highlight));
}

} // namespace velmarin
