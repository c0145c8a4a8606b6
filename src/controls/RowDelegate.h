#pragma once

#include <QStyledItemDelegate>

namespace velmarin {

/// Rows of a list, a little less dense than the style's; the whole text of a row that is cut short is its tool tip.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    /// The logical pixels that a row's text has in a row of `width`.
    virtual int roomIn(int width) const;
};

/// Rows of a menu: a mark before the current one, separators as lines.
class MenuRowDelegate : public RowDelegate {
    Q_OBJECT
  public:
    static constexpr int markRoom = 16;
    static constexpr int rightPadding = 8;
    static constexpr int sideRoom = markRoom + rightPadding;

    /// `currentRow` bears the mark; -1: none.
    MenuRowDelegate(int currentRow, QObject* parent) : RowDelegate(parent), currentRow_(currentRow) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    int roomIn(int width) const override { return width - sideRoom; }

  private:
    int currentRow_;
};

} // namespace velmarin
