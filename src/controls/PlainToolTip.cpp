#include "controls/PlainToolTip.h"

#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace velmarin {

QString plainToolTip(const QString& text) {
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(u'\r', u'\n');
    return Qt::mightBeRichText(lines) ? Qt::convertFromPlainText(lines) : lines;
}

void showPlainToolTip(const QPoint& globalPosition, const QString& text, QWidget* widget) {
    QToolTip::showText(globalPosition, plainToolTip(text), widget);
}

QString toolTipWithWhole(const QString& whole, bool elided, const QString& tip) {
    if (!elided)
        return tip;
    return tip.isEmpty() ? whole : whole + u'\n' + tip;
}

} // namespace velmarin
