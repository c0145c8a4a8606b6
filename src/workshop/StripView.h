#pragma once

#include "view/PageRenderer.h"
#include "view/Picture.h"
#include "workshop/StripPlan.h"

#include <QWidget>

namespace velmarin {

/// Shows the head of a page, sharp at any scale factor. What it shows of the page besides the head is faded.
class StripView : public QWidget {
    Q_OBJECT
  public:
    enum class Look { Clear, Dimmed };

    StripView(Look look, QWidget* parent);

    /// @param picture nil: nothing to show yet
    /// @param strip   the head, in pixels of the picture; empty if unknown
    /// @param words   to be enlarged above it
    void showPage(Picture picture, const PageBox& strip, std::vector<PageBox> words = {});
    /// Shows words in place of a page.
    void showNotice(const QString& text);

    void setZoom(double zoom);
    double zoom() const { return zoom_; }
    void setSide(StripSide side);

  signals:
    void clicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void paintPage(QPainter& painter, const QRect& exposed);
    /// Returns the height that they take.
    int paintWords(QPainter& painter, const QRect& exposed);
    void paintStrip(QPainter& painter, const QRect& exposed, int top);
    StripRequest request(int height) const;

    Look look_;
    Picture picture_;
    PageBox strip_;
    std::vector<PageBox> words_;
    QString notice_;
    double zoom_ = 1;
    StripSide side_ = StripSide::Left;
    PageRenderer renderer_, wordRenderer_; ///< each keeps what it has drawn at its scale
};

} // namespace velmarin
