#include "view/SmartCanvas.h"

#include "controls/Cursors.h"
#include "controls/PlainToolTip.h"
#include "platform/QtText.h"
#include "view/CommandPainter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

#include <utility>

namespace velmarin {

/// Lives during one operation or event. The outermost one paints at its end, once, if something was refreshed or drawn.
class SmartCanvas::PaintBatch {
  public:
    explicit PaintBatch(SmartCanvas& canvas) : canvas_(canvas) {
        if (canvas_.batches_++ == 0)
            canvas_.recordedInBatch_ = canvas_.unpainted_ = false;
    }
    ~PaintBatch() {
        if (--canvas_.batches_ > 0 || !canvas_.unpainted_)
            return;
        ++canvas_.batches_; // paints what was recorded
        canvas_.repaint();
        --canvas_.batches_;
    }
    PaintBatch(const PaintBatch&) = delete;
    PaintBatch& operator=(const PaintBatch&) = delete;

  private:
    SmartCanvas& canvas_;
};

class SmartCanvas::Port : public CanvasPort {
  public:
    explicit Port(SmartCanvas& canvas) : canvas_(canvas) {}

    void Refresh() override {
        if (!canvas_.isVisible())
            return;
        const PaintBatch batch(canvas_);
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
        const PaintBatch batch(canvas_);
        if (!canvas_.recordedInBatch_)
            canvas_.record();
        canvas_.unpainted_ = true;
    }
    void MsgBox(std::string_view text) override {
        // While the box is open the control is painted as usual.
        const int batches = std::exchange(canvas_.batches_, 0);
        canvas_.host_.MsgBox(text);
        canvas_.batches_ = batches;
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
    QAccessible::installFactory(accessibleCanvas); // a second call does nothing
    setAccessibleName(QStringLiteral("Page"));
    view_.Event_Open();
}

SmartCanvas::~SmartCanvas() = default;

bool SmartCanvas::SetPicture(const FolderItem& f) {
    const PaintBatch batch(*this);
    const bool shown = view_.SetPicture(f);
    dragging_ = dragging_ && hasImage();
    return shown;
}

bool SmartCanvas::SetPicture(Picture p) {
    const PaintBatch batch(*this);
    const bool shown = view_.SetPicture(std::move(p));
    dragging_ = dragging_ && hasImage();
    return shown;
}

void SmartCanvas::describePage(std::string_view of, std::string_view name, std::string_view problem) {
    const QString report = problem.empty() ? QString() : toQ(name) + QLatin1String(": ") + toQ(problem);
    const QString page = problem.empty() ? toQ(name) : report;
    setToolTip(plainToolTip(report));
    setAccessibleDescription(of.empty() || page.isEmpty() ? toQ(of) + page : toQ(of) + QLatin1String(", ") + page);
}

void SmartCanvas::dropImage() {
    view_.dropImage();
    recorded_.clear();
    renderer_.dropCache();
    dragging_ = false;
}

void SmartCanvas::Refresh() {
    const PaintBatch batch(*this);
    view_.Refresh();
}

void SmartCanvas::SmartScroll(int x, int y) {
    const PaintBatch batch(*this);
    view_.SmartScroll(x, y);
}

void SmartCanvas::mJumpScroll_vertical(int direction) {
    const PaintBatch batch(*this);
    view_.mJumpScroll_vertical(direction);
}

void SmartCanvas::mDrawExtraText() {
    const PaintBatch batch(*this);
    view_.mDrawExtraText();
}

void SmartCanvas::record() {
    Graphics g = view_.newGraphics();
    view_.Event_Paint(g);
    recorded_ = std::move(g.commands);
    recordedInBatch_ = true;
    if (!view_.Image)
        renderer_.dropCache();
}

void SmartCanvas::paintEvent(QPaintEvent* event) {
    if (batches_ == 0 && !dragging_)
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
    // A size that the control gets before it is first shown drops nothing.
    if (isVisible())
        view_.resized();
}

void SmartCanvas::hideEvent(QHideEvent*) {
    dragging_ = false;
    recorded_.clear();
    renderer_.dropCache();
    // Lens and marker go with the page. "No Picture" may have been drawn before the control is first shown, and stays.
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
    const PaintBatch batch(*this);
    const QPoint at = event->position().toPoint();
    dragging_ = view_.Event_MouseDown(at.x(), at.y());
}

void SmartCanvas::mouseMoveEvent(QMouseEvent* event) {
    const PaintBatch batch(*this);
    const QPoint at = event->position().toPoint();
    // The release went to a box or menu that opened in the meantime.
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
    const PaintBatch batch(*this);
    const QPoint at = event->position().toPoint();
    view_.Event_MouseUp(at.x(), at.y());
}

void SmartCanvas::wheelEvent(QWheelEvent* event) {
    constexpr int notch = 120;
    const QPoint turned = event->angleDelta();
    // Touchpads report fractions of a notch, which add up until the direction changes.
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
    const PaintBatch batch(*this);
    const QPoint at = event->position().toPoint();
    // For the view, a turn down the page is positive; sideways it moves against the sign.
    view_.Event_MouseWheel(at.x(), at.y(), sideways, -up);
}

} // namespace velmarin
