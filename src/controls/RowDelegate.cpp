#include "controls/RowDelegate.h"

#include "controls/DevicePixels.h"
#include "controls/FittedText.h"
#include "controls/PlainToolTip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>

#include <algorithm>

namespace velmarin {

int RowDelegate::textWidthIn(int width) const {
    return width - 2 * (QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const bool cut = textWidth(view->font(), text) > textWidthIn(option.rect.width());
    showPlainToolTip(event->globalPos(), cut ? text : QString(), view);
    return true;
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // With width 0 a row is as wide as the list, so that long text is elided and not clipped.
    return {0, std::max(QStyledItemDelegate::sizeHint(option, index).height(), option.fontMetrics.height() + 3)};
}

void MenuRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QRect row = option.rect;
    const bool enabled = index.flags().testFlag(Qt::ItemIsEnabled);
    if (!enabled) {
        const DevicePixels device(*painter);
        QRect line = device.rect(row);
        const int inset = device.length(6);
        line = QRect(line.left() + inset, line.center().y(), line.width() - 2 * inset, device.length(1));
        painter->fillRect(line, option.palette.color(QPalette::Mid));
        return;
    }
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected)
        painter->fillRect(row, option.palette.brush(QPalette::Highlight));
    const QColor ink = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    painter->save();
    if (index.row() == currentRow_) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(ink);
        painter->drawEllipse(QPointF(row.left() + kMarkRoom / 2.0, row.center().y() + 0.5), 2.5, 2.5);
    }
    painter->setPen(ink);
    painter->setFont(option.font);
    const QRect text = row.adjusted(kMarkRoom, 0, -kRightPadding, 0);
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      elidedInMiddle(option.font, index.data().toString(), text.width()));
    painter->restore();
}

QSize MenuRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {0, option.fontMetrics.height() + 4};
}

} // namespace velmarin
