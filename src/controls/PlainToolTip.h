#pragma once

#include <QPoint>
#include <QString>

class QWidget;

namespace velmarin {

/// Shows `text` as it stands, never as markup; an empty one hides what is shown. Line ends CR, LF or CR LF.
void showPlainToolTip(const QPoint& globalPosition, const QString& text, QWidget* widget);

/// What a control's tool tip says: first the whole of a text that is cut short on the control, then its own tip.
QString toolTipWithWhole(const QString& whole, bool cutShort, const QString& tip);

} // namespace velmarin
