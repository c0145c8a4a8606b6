#pragma once

#include <QPoint>
#include <QString>

class QWidget;

namespace velmarin {

/// `text` as `QWidget::setToolTip` takes it, to be shown as it is and never as markup. Line ends CR, LF or CR LF.
QString plainToolTip(const QString& text);

/// Shows `text` as it is, never as markup; an empty one hides what is shown.
void showPlainToolTip(const QPoint& globalPosition, const QString& text, QWidget* widget);

/// What a control's tool tip says: first the whole of a text that is cut short on the control, then its own tip.
QString toolTipWithWhole(const QString& whole, bool cutShort, const QString& tip);

} // namespace velmarin
