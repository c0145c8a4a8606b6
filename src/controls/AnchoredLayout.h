#pragma once

#include <QFlags>
#include <QObject>
#include <QRect>
#include <QSize>

#include <vector>

class QWidget;

namespace velmarin {

/// The edges of its parent that a control is anchored to.
enum class Anchor { Left = 1, Top = 2, Right = 4, Bottom = 8 };
Q_DECLARE_FLAGS(Anchors, Anchor)
Q_DECLARE_OPERATORS_FOR_FLAGS(Anchors)

/// The rectangle of a control whose design rectangle is `rect`, when its parent of design size `design` has the size
/// `actual`. A control anchored to both edges of an axis stretches; one anchored to the far edge alone moves; any other
/// stays. The size is never negative.
QRect anchoredRect(const QRect& rect, Anchors anchors, const QSize& design, const QSize& actual);

/// Places the children of a widget by rectangles that were designed for one size of it. It is not a QLayout: it does
/// not limit the parent's size, and a control is in its place as soon as it is added. Deleted children are removed.
///
/// Qt sends a hidden widget its resize event only when it is shown. This class sends a hidden child the event at once,
/// so layouts inside it follow too. After resizing the parent itself while it is hidden, call `apply`.
class AnchoredLayout : public QObject {
    Q_OBJECT
  public:
    /// Places children of `parent`, which owns this object.
    AnchoredLayout(QWidget* parent, const QSize& design);

    void add(QWidget* child, const QRect& rect, Anchors anchors);
    /// Changes the design rectangle. Does nothing for a child that was not added.
    void setRect(QWidget* child, const QRect& rect);
    /// The design rectangle; null for a child that was not added.
    QRect rect(const QWidget* child) const;
    QSize designSize() const { return design_; }

    /// Places all children for the parent's current size.
    void apply();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Place {
        QWidget* child;
        QRect rect;
        Anchors anchors;
    };
    void place(const Place& place) const;
    Place* find(const QWidget* child);

    QWidget* parent_;
    QSize design_;
    std::vector<Place> places_;
};

/// Sets the geometry of `widget`, and sends the resize event at once even if it is hidden.
void setGeometryNow(QWidget* widget, const QRect& geometry);

} // namespace velmarin
