#pragma once

#include <QStyledItemDelegate>

namespace velmarin {

/// Rows of a list, slightly higher than the style's. An elided row shows its whole text as a tool tip.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    /// The width for the text in a row of `width` logical pixels.
    virtual int textWidthIn(int width) const;
};

/// Rows of a menu, with a mark before the current one and lines for separators.
class MenuRowDelegate : public RowDelegate {
    Q_OBJECT
  public:
    static constexpr int kMarkRoom = 16;
    static constexpr int kRightPadding = 8;
    static constexpr int kSideRoom = kMarkRoom + kRightPadding;

    /// `currentRow` has the mark; -1: none.
    MenuRowDelegate(int currentRow, QObject* parent) : RowDelegate(parent), currentRow_(currentRow) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    int textWidthIn(int width) const override { return width - kSideRoom; }

  private:
    int currentRow_;
};

} // namespace velmarin
