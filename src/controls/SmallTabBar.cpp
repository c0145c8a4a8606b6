#include "controls/SmallTabBar.h"

#include "controls/FittedText.h"
#include "controls/PlainToolTip.h"
#include "controls/TabPanel.h"

#include <QHelpEvent>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int sidePadding = 7;
constexpr int narrowestTab = 96; // both ends of a name can be read
constexpr int widestTab = 200;

} // namespace

SmallTabBar::SmallTabBar(QWidget* parent) : QTabBar(parent) {
    setElideMode(Qt::ElideMiddle); // volumes of one work differ at their ends
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
    // The width goes by the whole caption, and is asked for as the text is set.
    setTabWhatsThis(tab, caption);
    setTabText(tab, shown);
}

bool SmallTabBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int tab = tabAt(help->pos());
        const bool cut = tab >= 0 && shownCaption(tab) != tabWhatsThis(tab);
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

QString SmallTabBar::shownCaption(int tab) const {
    return elidedInMiddle(font(), tabWhatsThis(tab), tabRect(tab).width() - 2 * sidePadding);
}

void SmallTabBar::paintEvent(QPaintEvent* event) {
    QStylePainter painter(this);
    const int front = currentIndex();
    for (int tab = 0; tab < count(); ++tab)
        if (tab != front && tabRect(tab).intersects(event->rect()))
            paintTab(painter, tab);
    if (front >= 0)
        paintTab(painter, front);
}

void SmallTabBar::paintTab(QStylePainter& painter, int tab) const {
    QStyleOptionTab option;
    initStyleOption(&option, tab);
    painter.drawControl(QStyle::CE_TabBarTabShape, option);
    const QRect caption = option.rect.adjusted(sidePadding, 0, -sidePadding, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignCenter | Qt::TextSingleLine, shownCaption(tab));
    if (tab == currentIndex() && hasFocus()) {
        const int line = caption.bottom() - 2;
        painter.fillRect(caption.left(), line, caption.width(), 2, palette().color(QPalette::Highlight));
    }
}

int SmallTabBar::captionWidth(int tab) const {
    return textWidth(font(), tabWhatsThis(tab)) + 2 * sidePadding;
}

QSize SmallTabBar::tabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), widestTab), TabPanel::kBarHeight};
}

QSize SmallTabBar::minimumTabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), narrowestTab), TabPanel::kBarHeight};
}

} // namespace velmarin
