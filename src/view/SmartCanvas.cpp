#include "view/SmartCanvas.h"

#include "controls/Cursors.h"
#include "controls/PlainToolTip.h"
#include "controls/QtText.h"
#include "view/CommandPainter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

#include <utility>

namespace velmarin {

/// One operation or event: what it refreshes and draws is painted at its end, once.
class SmartCanvas::Step {
  public:
    explicit Step(SmartCanvas& canvas) : canvas_(canvas) {
        if (canvas_.steps_++ == 0)
            canvas_.recordedNow_ = canvas_.unpainted_ = false;
    }
    ~Step() {
        if (--canvas_.steps_ > 0 || !canvas_.unpainted_)
            return;
        ++canvas_.steps_; // what was recorded is what is painted
        canvas_.repaint();
        --canvas_.steps_;
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

  private:
    SmartCanvas& canvas_;
};

class SmartCanvas::Port : public CanvasPort {
  public:
    explicit Port(SmartCanvas& canvas) : canvas_(canvas) {}

    void Refresh() override {
        if (!canvas_.isVisible())
            return;
        const Step step(canvas_);
        canvas_.record();
        canvas_.unpainted_ = true;
    }
    int Width() const override { return canvas_.width(); }
    int Height() const override { return canvas_.height(); }
    bool AsyncShiftKey() override { return canvas_.host_.AsyncShiftKey(); }
    void setMouseCursor(MouseCursor cursor) override { canvas_.showCursor(cursor); }
    int StringHeight(const std::string& text, int wrapWidth, const TextStyle& style) override {
        return CommandPainter::heightOf(text, wrapWidth, style);
    }
    void drawnOver() override {
        if (!canvas_.isVisible())
            return;
        const Step step(canvas_);
        if (!canvas_.recordedNow_)
            canvas_.record();
        canvas_.unpainted_ = true;
    }
    void MsgBox(std::string_view text) override {
        // The control may be painted while the box is open: as it is then.
        const int steps = std::exchange(canvas_.steps_, 0);
        canvas_.host_.MsgBox(text);
        canvas_.steps_ = steps;
    }

  private:
    SmartCanvas& canvas_;
};

namespace {

QAccessibleInterface* accessibleCanvas(const QString&, QObject* object) {
    auto* canvas = qobject_cast<SmartCanvas*>(object);
    return canvas == nullptr ? nullptr : new QAccessibleWidget(canvas, QAccessible::Graphic);
}

} // namespace

SmartCanvas::SmartCanvas(Host& host, QWidget* parent)
    : QWidget(parent), host_(host), port_(std::make_unique<Port>(*this)), view_(*port_) {
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    QAccessible::installFactory(accessibleCanvas); // ignores one that it has already
    setAccessibleName(QStringLiteral("Page"));
    view_.Event_Open();
}

SmartCanvas::~SmartCanvas() = default;

bool SmartCanvas::SetPicture(const FolderItem& f) {
    const Step step(*this);
    const bool shown = view_.SetPicture(f);
    dragging_ = dragging_ && hasImage();
    return shown;
}

bool SmartCanvas::SetPicture(Picture p) {
    const Step step(*this);
    const bool shown = view_.SetPicture(std::move(p));
    dragging_ = dragging_ && hasImage();
    return shown;
}

void SmartCanvas::describePage(std::string_view of, std::string_view name, std::string_view problem) {
    const QString trouble = problem.empty() ? QString() : toQ(name) + QLatin1String(": ") + toQ(problem);
    const QString page = problem.empty() ? toQ(name) : trouble;
    setToolTip(plainToolTip(trouble));
    setAccessibleDescription(of.empty() || page.isEmpty() ? toQ(of) + page : toQ(of) + QLatin1String(", ") + page);
}

void SmartCanvas::dropImage() {
    view_.dropImage();
    recorded_.clear();
    renderer_.drop();
    dragging_ = false;
}

void SmartCanvas::Refresh() {
    const Step step(*this);
    view_.Refresh();
}

void SmartCanvas::SmartScroll(int x, int y) {
    const Step step(*this);
    view_.SmartScroll(x, y);
}

void SmartCanvas::mJumpScroll_vertical(int direction) {
    const Step step(*this);
    view_.mJumpScroll_vertical(direction);
}

void SmartCanvas::mDrawExtraText() {
    const Step step(*this);
    view_.mDrawExtraText();
}

void SmartCanvas::record() {
    Graphics g = view_.newGraphics();
    view_.Event_Paint(g);
    recorded_ = std::move(g.commands);
    recordedNow_ = true;
    if (!view_.Image)
        renderer_.drop();
}

void SmartCanvas::paintEvent(QPaintEvent* event) {
    if (steps_ == 0 && !dragging_)
        record();
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::white);
    CommandPainter draw(painter, renderer_, event->rect(), devicePixelRatioF());
    for (const DrawCommand& command : recorded_)
        std::visit(draw, command);
    for (const DrawCommand& command : view_.drawnOver())
        std::visit(draw, command);
}

void SmartCanvas::resizeEvent(QResizeEvent*) {
    // The sizes that a control gets before it is first shown take nothing away.
    if (isVisible())
        view_.resized();
}

void SmartCanvas::hideEvent(QHideEvent*) {
    dragging_ = false;
    recorded_.clear();
    renderer_.drop();
    // Lens and marker belong to what was on the screen; "No Picture" may be told before the first showing.
    if (view_.Image)
        view_.resized();
}

void SmartCanvas::showCursor(MouseCursor cursor) {
    switch (cursor) {
    case MouseCursor::Default:
        unsetCursor();
        break;
    case MouseCursor::Hand:
        setCursor(handCursor(devicePixelRatioF()));
        break;
    case MouseCursor::Grip:
        setCursor(gripCursor(devicePixelRatioF()));
        break;
    case MouseCursor::Lens:
        setCursor(lensCursor(devicePixelRatioF()));
        break;
    case MouseCursor::ArrowNorthwestSoutheast:
        setCursor(Qt::SizeFDiagCursor);
        break;
    case MouseCursor::IBeam:
        setCursor(Qt::IBeamCursor);
        break;
    }
}

void SmartCanvas::enterEvent(QEnterEvent*) {
    view_.Event_MouseEnter();
}

void SmartCanvas::leaveEvent(QEvent*) {
    view_.Event_MouseExit();
}

void SmartCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    const Step step(*this);
    const QPoint at = event->position().toPoint();
    dragging_ = view_.Event_MouseDown(at.x(), at.y());
}

void SmartCanvas::mouseMoveEvent(QMouseEvent* event) {
    const Step step(*this);
    const QPoint at = event->position().toPoint();
    // A box or a menu that came up meanwhile took the release.
    if (dragging_ && (event->buttons() & Qt::LeftButton) == 0) {
        dragging_ = false;
        view_.Event_MouseUp(at.x(), at.y());
    }
    if (dragging_)
        view_.Event_MouseDrag(at.x(), at.y());
    else if (event->buttons() == Qt::NoButton)
        view_.Event_MouseMove(at.x(), at.y());
}

void SmartCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(dragging_, false))
        return;
    const Step step(*this);
    const QPoint at = event->position().toPoint();
    view_.Event_MouseUp(at.x(), at.y());
}

void SmartCanvas::wheelEvent(QWheelEvent* event) {
    constexpr int notch = 120;
    const QPoint turned = event->angleDelta();
    // A touchpad tells of parts of a notch: they add up, until the direction changes.
    auto add = [](int& rest, int by) {
        if (by != 0 && (rest < 0) != (by < 0))
            rest = 0;
        rest += by;
        const int notches = rest / notch;
        rest %= notch;
        return notches;
    };
    const int sideways = add(wheelRest_.rx(), turned.x());
    const int up = add(wheelRest_.ry(), turned.y());
    event->accept();
    if (sideways == 0 && up == 0)
        return;
    const Step step(*this);
    const QPoint at = event->position().toPoint();
    // The view takes a wheel that turns down the page as positive, and moves against the sign of the other axis.
    view_.Event_MouseWheel(at.x(), at.y(), sideways, -up);
}

} // namespace velmarin
