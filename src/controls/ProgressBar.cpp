#include "controls/ProgressBar.h"

#include "controls/DevicePixels.h"

#include <QPainter>

#include <algorithm>
#include <chrono>

namespace velmarin {

namespace {

constexpr int kThickness = 12;

constexpr std::chrono::milliseconds kStep{40};
/// The number of steps in which the running piece crosses the bar.
constexpr int kStepsAcross = 40;
/// The length of the running piece, as a share of the bar.
constexpr double kRunningPiece = 0.25;

} // namespace

ProgressBar::ProgressBar(Qt::Orientation orientation, QWidget* parent) : QProgressBar(parent) {
    setOrientation(orientation);
    setTextVisible(false);
    step_.setObjectName(QStringLiteral("step"));
    step_.setInterval(kStep);
    connect(&step_, &QTimer::timeout, this, [this] {
        stepsDone_ = (stepsDone_ + 1) % kStepsAcross;
        repaint();
    });
    refresh();
}

void ProgressBar::setMaximum(int maximum) {
    maximum_ = std::max(0, maximum);
    value_ = std::min(value_, maximum_);
    full_ = false;
    refresh();
}

void ProgressBar::setValue(int value) {
    value_ = std::clamp(value, 0, maximum_);
    refresh();
}

void ProgressBar::showFull() {
    value_ = maximum_;
    full_ = true;
    refresh();
}

void ProgressBar::refresh() {
    // For screen readers. In the base class a range of 0 to 0 means that the end is unknown.
    setRange(0, full_ ? std::max(1, maximum_) : maximum_);
    QProgressBar::setValue(full_ ? maximum() : value_);
    runWhileVisible();
    repaint();
}

void ProgressBar::runWhileVisible() {
    const bool runs = endIsUnknown() && isVisible();
    if (runs == step_.isActive())
        return;
    stepsDone_ = 0;
    if (runs)
        step_.start();
    else
        step_.stop();
}

void ProgressBar::showEvent(QShowEvent* event) {
    QProgressBar::showEvent(event);
    runWhileVisible();
}

void ProgressBar::hideEvent(QHideEvent* event) {
    QProgressBar::hideEvent(event);
    runWhileVisible();
}

QSize ProgressBar::sizeHint() const {
    return orientation() == Qt::Vertical ? QSize(kThickness, 10 * kThickness) : QSize(10 * kThickness, kThickness);
}

QRect ProgressBar::runningPiece(const QRect& bar) const {
    const bool vertical = orientation() == Qt::Vertical;
    const int whole = vertical ? bar.height() : bar.width();
    const int piece = qRound(kRunningPiece * whole);
    // The piece enters at one end and leaves at the other.
    const int end = qRound((stepsDone_ + 1.0) / (kStepsAcross + 1) * (whole + piece));
    const int from = std::max(0, end - piece);
    const int length = std::min(end, whole) - from;
    return vertical ? QRect(bar.left(), bar.bottom() + 1 - from - length, bar.width(), length)
                    : QRect(bar.left() + from, bar.top(), length, bar.height());
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect whole = device.rect(rect());
    const int line = device.length(1);
    painter.fillRect(whole, palette().color(QPalette::Mid));
    QRect bar = whole.adjusted(line, line, -line, -line);
    painter.fillRect(bar, palette().color(QPalette::Base));
    if (endIsUnknown()) {
        bar = runningPiece(bar);
    } else {
        const double share = full_ ? 1.0 : static_cast<double>(value_) / maximum_;
        if (orientation() == Qt::Vertical)
            bar.setTop(bar.bottom() + 1 - qRound(share * bar.height()));
        else
            bar.setWidth(qRound(share * bar.width()));
    }
    painter.fillRect(bar, palette().color(QPalette::Highlight));
}

} // namespace velmarin
