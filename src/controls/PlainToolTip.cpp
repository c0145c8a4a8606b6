#include "controls/PlainToolTip.h"

#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace velmarin {

void showPlainToolTip(const QPoint& globalPosition, const QString& text, QWidget* widget) {
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(u'\r', u'\n');
    if (Qt::mightBeRichText(lines))
        lines = Qt::convertFromPlainText(lines);
    QToolTip::showText(globalPosition, lines, widget);
}

QString toolTipWithWhole(const QString& whole, bool cutShort, const QString& tip) {
    if (!cutShort)
        return tip;
    return tip.isEmpty() ? whole : whole + u'\n' + tip;
}

} // namespace velmarin
