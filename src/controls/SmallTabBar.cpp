#include "controls/SmallTabBar.h"

#include "controls/FittedText.h"
#include "controls/PlainToolTip.h"

#include <QHelpEvent>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kSidePadding = 7;
constexpr int kNarrowestTab = 96; // both ends of a name stay readable
constexpr int kWidestTab = 200;

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
    // An ampersand in a dictionary's name must not become a shortcut.
    QString shown = caption;
    shown.replace(u'&', QLatin1String("&&"));
    // Setting the text asks for the width, which depends on the whole caption.
    setTabWhatsThis(tab, caption);
    setTabText(tab, shown);
}

bool SmallTabBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int tab = tabAt(help->pos());
        QStringList lines;
        if (tab >= 0 && shownCaption(tab) != tabWhatsThis(tab))
            lines << tabWhatsThis(tab);
        if (!tabToolTip(tab).isEmpty())
            lines << tabToolTip(tab);
        showPlainToolTip(help->globalPos(), lines.join(u'\n'), this);
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
    if (settingFont_)
        return;
    settingFont_ = true;
    setFont(fontForHeight(parentWidget()->font(), kHeight - 6));
    settingFont_ = false;
}

QString SmallTabBar::shownCaption(int tab) const {
    return elidedInMiddle(font(), tabWhatsThis(tab), tabRect(tab).width() - 2 * kSidePadding);
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
    const QRect caption = option.rect.adjusted(kSidePadding, 0, -kSidePadding, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignCenter | Qt::TextSingleLine, shownCaption(tab));
    if (tab == currentIndex() && hasFocus()) {
        const int line = caption.bottom() - 2;
        painter.fillRect(caption.left(), line, caption.width(), 2, palette().color(QPalette::Highlight));
    }
}

int SmallTabBar::captionWidth(int tab) const {
    return textWidth(font(), tabWhatsThis(tab)) + 2 * kSidePadding;
}

QSize SmallTabBar::tabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), kWidestTab), kHeight};
}

QSize SmallTabBar::minimumTabSizeHint(int tab) const {
    return {std::min(captionWidth(tab), kNarrowestTab), kHeight};
}

} // namespace velmarin
