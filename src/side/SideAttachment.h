#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QWidget>

class QDockWidget;
class QMainWindow;

namespace velmarin {

/// How a side window is attached to its main window: as a window beside it, or, if programs cannot place their windows
/// on this display system, as a panel inside its right edge.
enum class Attachment { Window, Panel };

/// `platform` is Qt's name of the display system.
Attachment attachmentFor(const QString& platform);

/// The place of a side window of this width: flush with the right edge of the main window's frame, as high as its
/// content, and moved left as far as it needs to stay on the screen.
QRect placeBeside(const QRect& mainFrame, const QRect& mainContent, int width, const QRect& screen);

/// Keeps `side` at `mainWindow`. A window follows the moves and sizes of the main window, and its width is changed at
/// its free edge; a panel is resized by the separator of the main window.
class SideAttachment : public QObject {
    Q_OBJECT
  public:
    SideAttachment(Attachment attachment, QWidget* side, QMainWindow* mainWindow, int minimumWidth, int maximumWidth);
    ~SideAttachment() override;

    Attachment attachment() const { return attachment_; }
    /// Shows the side window with this width.
    void show(int width);
    /// The width that `show` or the user asked for. At a fractional scale the real width can be a pixel off, because
    /// the desktop counts in device pixels.
    int width() const;

  signals:
    /// The main window has been closed.
    void mainWindowClosed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();
    void adoptUserWidth();
    void placeGrip();
    void drag(QEvent* event);

    Attachment attachment_;
    QPointer<QWidget> side_;
    QPointer<QMainWindow> mainWindow_;
    QPointer<QDockWidget> dock_;
    int minimumWidth_;
    int maximumWidth_;
    int width_ = 0;
    /// Where the window was last placed.
    QRect placed_;
    /// The strip at the free edge by which the width is dragged.
    QPointer<QWidget> grip_;
    bool leftIsFree_ = false;
    int dragFrom_ = 0;
    int widthAtDrag_ = 0;
};

} // namespace velmarin
