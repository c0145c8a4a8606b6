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

/// The control that shows a page: a PageView as a widget. White outside the page. It takes no focus, so that typing
/// stays in the search field. Its accessible role is a graphic.
///
/// Each operation and each mouse event paints once, at its end, so a lens that is erased and redrawn does not flicker.
/// The reduced page is cached while the control is visible.
class SmartCanvas : public QWidget {
    Q_OBJECT
  public:
    explicit SmartCanvas(Host& host, QWidget* parent = nullptr);
    ~SmartCanvas() override;

    bool SetPicture(const FolderItem& f);
    bool SetPicture(Picture p);
    const std::string& loadProblem() const { return view_.loadProblem(); }
    /// Sets the description for screen readers: the page's `name`, and the dictionary or folder `of` unless it is
    /// empty. A `problem` with the page is part of the description and becomes the tool tip; empty if all is well.
    void describePage(std::string_view of, std::string_view name, std::string_view problem);

    int Mode() const { return view_.Mode; }
    /// Takes effect with the next Refresh.
    void setMode(int mode) { view_.Mode = mode; }
    bool hasImage() const { return !view_.Image.isNil(); }
    /// Drops the page; visible after the next Refresh.
    void dropImage();
    /// Repaints before it returns.
    void Refresh();

    void SmartScroll(int x, int y);
    void mJumpScroll_vertical(int direction);
    void setExtraText(std::string text) { view_.pExtraText_Text = std::move(text); }
    void mDrawExtraText();

    /// For everything else.
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
    class PaintBatch;

    void record();
    void showCursor(MouseCursor cursor);

    Host& host_;
    std::unique_ptr<Port> port_;
    PageView view_;
    PageRenderer renderer_;
    /// What the last Event_Paint drew. During a drag, repaints use this, because the page is not at the view's stored
    /// position.
    std::vector<DrawCommand> recorded_;
    int batches_ = 0;              ///< running operations
    bool recordedInBatch_ = false; ///< since the outermost batch began
    bool unpainted_ = false;       ///< something is to be painted at the end of the batch
    bool dragging_ = false;        ///< a press started a drag
    QPoint wheelRest_;             ///< fraction of a notch so far, in eighths of a degree
};

} // namespace velmarin
