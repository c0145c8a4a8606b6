#pragma once

#include <QPoint>
#include <QString>

class QWidget;

namespace velmarin {

/// Converts `text` for `QWidget::setToolTip` so that it is shown literally, never as markup. Line ends may be CR, LF or
/// CR LF.
QString plainToolTip(const QString& text);

/// Shows `text` literally, never as markup. Empty text hides the tool tip.
void showPlainToolTip(const QPoint& globalPosition, const QString& text, QWidget* widget);

/// A control's tool tip: first `whole`, if that text is elided on the control, then its own tip.
QString toolTipWithWhole(const QString& whole, bool elided, const QString& tip);

} // namespace velmarin
