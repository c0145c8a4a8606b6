#include "controls/SmallTabBar.h"

#include "controls/FittedText.h"
#include "controls/PlainToolTip.h"
#include "controls/TabPanel.h"

#include <QHelpEvent>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int sidePadding = 12;
constexpr int narrowestTab = 64;
constexpr int widestTab = 200;

} // namespace

SmallTabBar::SmallTabBar(QWidget* parent) : QTabBar(parent) {
    setElideMode(Qt::ElideRight);
    setUsesScrollButtons(true);
    setExpanding(false);
    setDrawBase(false);
    setFocusPolicy(Qt::TabFocus);
    fitFont();
}

void SmallTabBar::setCaption(int tab, const QString& caption) {
    // An ampersand in a dictionary's name is no shortcut.
    QString shown = caption;
    shown.replace(u'&', QLatin1String("&&"));
    setTabText(tab, shown);
    setTabWhatsThis(tab, caption);
}

bool SmallTabBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int tab = tabAt(help->pos());
        const bool cut = tab >= 0 && captionWidth(tab) > tabRect(tab).width();
        showPlainToolTip(help->globalPos(), cut ? tabWhatsThis(tab) : QString(), this);
        return true;
    }
    return QTabBar::event(event);
}

void SmallTabBar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        fitFont();
    QTabBar::changeEvent(event);
}

void SmallTabBar::fitFont() {
    if (fitting_)
        return;
    fitting_ = true;
    setFont(fontForHeight(parentWidget()->font(), TabPanel::kBarHeight - 6));
    fitting_ = false;
}

int SmallTabBar::captionWidth(int tab) const {
    return fontMetrics().horizontalAdvance(tabWhatsThis(tab)) + 2 * sidePadding;
}

QSize SmallTabBar::tabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), widestTab), TabPanel::kBarHeight};
}

QSize SmallTabBar::minimumTabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), narrowestTab), TabPanel::kBarHeight};
}

} // namespace velmarin
