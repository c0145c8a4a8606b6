#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QWidget>

class QDockWidget;
class QMainWindow;

namespace velmarin {

/// How a side window hangs at its main window: as a window of its own beside it, or, on a display system that lets no
/// program place its windows, as a panel inside its right edge.
enum class Hanging { Window, Panel };

/// The one place where this is decided. `platform` is Qt's name of the display system.
Hanging hangingFor(const QString& platform);

/// Where a side window of this width stands: flush with the right edge of the main window's frame, as high as its
/// content, and where the screen has no room there as far left as keeps it on the screen.
QRect placeBeside(const QRect& mainFrame, const QRect& mainContent, int width, const QRect& screen);

/// Hangs `side` at `mainWindow` for as long as it lives: a window follows the moves and sizes of the main window
/// and is made wider or narrower at its free edge; a panel has the main window's own separator.
class SideHanging : public QObject {
    Q_OBJECT
  public:
    SideHanging(Hanging hanging, QWidget* side, QMainWindow* mainWindow, int minimumWidth, int maximumWidth);
    ~SideHanging() override;

    Hanging hanging() const { return hanging_; }
    /// Shows the side window with this width.
    void show(int width);
    /// The width that was asked for, by `show` or by the user. At a fractional scale the window's own can be a pixel
    /// off, since the desktop counts in device pixels.
    int width() const;

  signals:
    /// The main window has been closed.
    void mainWindowClosed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();
    void takeOtherWidth();
    void placeGrip();
    void drag(QEvent* event);

    Hanging hanging_;
    QPointer<QWidget> side_;
    QPointer<QMainWindow> mainWindow_;
    QPointer<QDockWidget> dock_;
    int minimumWidth_;
    int maximumWidth_;
    int width_ = 0;
    /// Where the window was put last.
    QRect placed_;
    /// The strip at the free edge by which the width is dragged.
    QPointer<QWidget> grip_;
    bool leftIsFree_ = false;
    int dragFrom_ = 0;
    int widthAtDrag_ = 0;
};

} // namespace velmarin
