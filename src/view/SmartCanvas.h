#pragma once

#include "files/FolderItem.h"
#include "platform/Host.h"
#include "view/PageRenderer.h"
#include "view/PageView.h"

#include <QWidget>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The control that shows a page: a PageView on the screen. White where there is no page; takes no focus, so that keys
/// stay where they are typed. Screen readers know it as a picture.
///
/// Each operation and each mouse event paints the screen once, at its end, so a lens that is wiped and redrawn in one
/// step does not flicker. The reduced page is kept while the control is shown.
class SmartCanvas : public QWidget {
    Q_OBJECT
  public:
    explicit SmartCanvas(Host& host, QWidget* parent = nullptr);
    ~SmartCanvas() override;

    bool SetPicture(const FolderItem& f);
    bool SetPicture(Picture p);
    const std::string& loadProblem() const { return view_.loadProblem(); }
    /// Tells screen readers which page this is: its `name`, in the dictionary or folder `of` unless that is empty. A
    /// `problem` with the page is told there and in the tool tip; it is empty if all is well.
    void describePage(std::string_view of, std::string_view name, std::string_view problem);

    int Mode() const { return view_.Mode; }
    /// Shows with the next Refresh.
    void setMode(int mode) { view_.Mode = mode; }
    bool hasImage() const { return !view_.Image.isNil(); }
    /// Lets go of the page; shows with the next Refresh.
    void dropImage();
    /// Has repainted when it returns.
    void Refresh();

    void SmartScroll(int x, int y);
    void mJumpScroll_vertical(int direction);
    void setExtraText(std::string text) { view_.pExtraText_Text = std::move(text); }
    void mDrawExtraText();

    /// All else that a page view has.
    PageView& view() { return view_; }
    const PageRenderer& renderer() const { return renderer_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    class Port;
    class Step;

    void record();
    void showCursor(MouseCursor cursor);

    Host& host_;
    std::unique_ptr<Port> port_;
    PageView view_;
    PageRenderer renderer_;
    /// What the last Event_Paint drew. During a drag the page stands elsewhere than the view's stored position says,
    /// and is repainted from here.
    std::vector<DrawCommand> recorded_;
    int steps_ = 0;            ///< operations under way
    bool recordedNow_ = false; ///< by the present step
    bool unpainted_ = false;   ///< the present step has something to show
    bool dragging_ = false;    ///< a press claimed the mouse
    QPoint wheelRest_;         ///< of a notch, in eighths of a degree
};

} // namespace velmarin
