#pragma once

#include <QFlags>
#include <QObject>
#include <QRect>
#include <QSize>

#include <vector>

class QWidget;

namespace velmarin {

/// The edges of its parent that a control is tied to.
enum class Anchor { Left = 1, Top = 2, Right = 4, Bottom = 8 };
Q_DECLARE_FLAGS(Anchors, Anchor)
Q_DECLARE_OPERATORS_FOR_FLAGS(Anchors)

/// Where a control of design rectangle `rect` stands when its parent, of design size `design`, has the size `actual`.
/// Tied to both edges of a direction it stretches, to the far one alone it moves, otherwise it stays. Its size is never
/// negative.
QRect anchoredRect(const QRect& rect, Anchors anchors, const QSize& design, const QSize& actual);

/// Places children of a widget by rectangles that were designed for one size of it. It watches the parent's size rather
/// than being a QLayout, so that it neither limits the parent's size nor puts anything off: a control is in its place
/// as soon as it is added. A child that is deleted is forgotten.
///
/// Qt tells a hidden widget of its new size only as it is shown. A hidden child is told at once here, so a layout
/// within it follows as well; after resizing the parent itself while it is hidden, call `apply`.
class AnchoredLayout : public QObject {
    Q_OBJECT
  public:
    /// Belongs to `parent`, whose children it places.
    AnchoredLayout(QWidget* parent, const QSize& design);

    void add(QWidget* child, const QRect& rect, Anchors anchors);
    /// Changes the design rectangle. A child that was never added stays where it is.
    void setRect(QWidget* child, const QRect& rect);
    /// The design rectangle; null where the child was never added.
    QRect rect(const QWidget* child) const;
    QSize designSize() const { return design_; }

    /// Places all children for the parent's present size.
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

/// Sets the geometry of `widget`, and tells it of a new size at once even where it is hidden.
void setGeometryNow(QWidget* widget, const QRect& geometry);

} // namespace velmarin
