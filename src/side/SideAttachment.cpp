#include "side/SideAttachment.h"

#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>
#include <cstdlib>

namespace velmarin {

namespace {

constexpr int kGripWidth = 5;
/// How far a size can be off after rounding to device pixels and back.
constexpr int kRounding = 1;

} // namespace

Attachment attachmentFor(const QString& platform) {
    return platform.startsWith(QLatin1String("wayland")) ? Attachment::Panel : Attachment::Window;
}

QRect placeBeside(const QRect& mainFrame, const QRect& mainContent, int width, const QRect& screen) {
    const int flush = mainFrame.x() + mainFrame.width();
    const int rightmost = screen.x() + screen.width() - width;
    return {std::max(std::min(flush, rightmost), screen.x()), mainContent.y(), width, mainContent.height()};
}

SideAttachment::SideAttachment(Attachment attachment, QWidget* side, QMainWindow* mainWindow, int minimumWidth,
                               int maximumWidth)
    : QObject(mainWindow), attachment_(attachment), side_(side), mainWindow_(mainWindow), minimumWidth_(minimumWidth),
      maximumWidth_(maximumWidth) {
    mainWindow->installEventFilter(this);
    if (attachment == Attachment::Panel) {
        dock_ = new QDockWidget(mainWindow);
        dock_->setObjectName(QStringLiteral("SubWindowPanel"));
        dock_->setFeatures(QDockWidget::NoDockWidgetFeatures);
        dock_->setTitleBarWidget(new QWidget(dock_));
        dock_->setWidget(side);
        mainWindow->addDockWidget(Qt::RightDockWidgetArea, dock_);
        return;
    }
    grip_ = new QWidget(side);
    grip_->setObjectName(QStringLiteral("EdgeGrip"));
    grip_->setCursor(Qt::SizeHorCursor);
    grip_->installEventFilter(this);
    side->installEventFilter(this);
}

SideAttachment::~SideAttachment() {
    if (dock_.isNull())
        return;
    // The owner of the side window deletes it.
    if (!side_.isNull())
        side_->setParent(nullptr);
    delete dock_;
}

void SideAttachment::show(int width) {
    if (attachment_ == Attachment::Panel) {
        side_->show();
        dock_->show();
        mainWindow_->resizeDocks({dock_}, {width}, Qt::Horizontal);
        return;
    }
    width_ = width;
    place();
    side_->show();
    placed_ = QRect();
    place();
    grip_->raise();
}

int SideAttachment::width() const {
    return attachment_ == Attachment::Window ? width_ : side_->width();
}

void SideAttachment::adoptUserWidth() {
    if (std::abs(side_->width() - width_) > kRounding)
        width_ = side_->width();
}

void SideAttachment::place() {
    if (side_.isNull() || mainWindow_.isNull())
        return;
    const QRect screen = mainWindow_->screen()->availableGeometry();
    const QRect wanted = placeBeside(mainWindow_->frameGeometry(), mainWindow_->geometry(), width_, screen);
    leftIsFree_ = wanted.right() >= screen.right();
    const QSize off = side_->size() - wanted.size();
    // Repeating a request that the desktop has rounded would lead to the same rounding, endlessly.
    if (placed_ != wanted || std::abs(off.width()) > kRounding || std::abs(off.height()) > kRounding) {
        placed_ = wanted;
        side_->setGeometry(wanted);
    }
    placeGrip();
}

void SideAttachment::placeGrip() {
    grip_->setGeometry(leftIsFree_ ? 0 : side_->width() - kGripWidth, 0, kGripWidth, side_->height());
}

void SideAttachment::drag(QEvent* event) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const int at = mouse->globalPosition().toPoint().x();
    if (event->type() == QEvent::MouseButtonPress) {
        dragFrom_ = at;
        widthAtDrag_ = width_;
        return;
    }
    const int grown = leftIsFree_ ? dragFrom_ - at : at - dragFrom_;
    // If the window became wider than the screen has room for, its edge would move away from the mouse.
    const QRect screen = mainWindow_->screen()->availableGeometry();
    const int room =
        leftIsFree_ ? screen.width() : screen.x() + screen.width() - mainWindow_->frameGeometry().right() - 1;
    width_ = std::clamp(widthAtDrag_ + grown, minimumWidth_, std::max(minimumWidth_, std::min(maximumWidth_, room)));
    place();
}

bool SideAttachment::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == grip_) {
        const bool dragged =
            type == QEvent::MouseMove && (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton) != 0;
        if (type == QEvent::MouseButtonPress || dragged)
            drag(event);
        return type == QEvent::MouseButtonPress || QObject::eventFilter(watched, event);
    }
    if (watched == side_ && type == QEvent::Resize) {
        adoptUserWidth();
        place();
    }
    if (watched != mainWindow_)
        return QObject::eventFilter(watched, event);
    if (type == QEvent::Hide && !event->spontaneous()) {
        emit mainWindowClosed();
        return false; // this object may be gone
    }
    // Nothing to do on minimizing: the desktop hides a window's transient windows with it.
    if (attachment_ == Attachment::Window && (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show))
        place();
    return QObject::eventFilter(watched, event);
}

} // namespace velmarin
