#include "controls/TabPanel.h"

#include "controls/AnchoredLayout.h"
#include "controls/DevicePixels.h"
#include "platform/QtText.h"

#include <QPainter>

#include <algorithm>

namespace velmarin {

namespace {

/// A page with a thin frame that joins its tab.
class TabPage : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const DevicePixels device(painter);
        const QRect frame = device.rect(rect());
        const int line = device.length(1);
        const QColor ink = palette().color(QPalette::Window).darker(140);
        painter.fillRect(frame, ink);
        painter.fillRect(frame.adjusted(line, line, -line, -line), palette().color(QPalette::Window));
    }
};

} // namespace

TabPanel::TabPanel(QWidget* parent) : QWidget(parent), bar_(new SmallTabBar(this)) {
    connect(bar_, &QTabBar::currentChanged, this, &TabPanel::showFrontPage);
}

int TabPanel::Value() const {
    return bar_->currentIndex();
}

void TabPanel::setValue(int panel) {
    if (has(panel))
        bar_->setCurrentIndex(panel);
}

std::string TabPanel::caption(int panel) const {
    return has(panel) ? panels_[static_cast<std::size_t>(panel)].caption : std::string();
}

void TabPanel::setCaption(int panel, std::string_view caption) {
    if (!has(panel))
        return;
    panels_[static_cast<std::size_t>(panel)].caption = caption;
    bar_->setCaption(panel, toQ(caption));
}

void TabPanel::setNote(int panel, std::string_view note) {
    bar_->setTabToolTip(panel, toQ(note));
}

QWidget* TabPanel::insertPanel(int position, std::string_view caption) {
    const int place = std::clamp(position, 0, PanelCount());
    auto* page = new TabPage(this);
    page->hide();
    setGeometryNow(page, pageRect());
    panels_.insert(panels_.begin() + place, Panel{std::string(caption), page});
    bar_->insertTab(place, QString());
    bar_->setCaption(place, toQ(caption));
    return page;
}

void TabPanel::removePanel(int panel) {
    if (!has(panel))
        return;
    QWidget* page = this->panel(panel);
    panels_.erase(panels_.begin() + panel);
    bar_->removeTab(panel);
    page->hide();
    page->deleteLater();
}

QWidget* TabPanel::panel(int panel) const {
    return has(panel) ? panels_[static_cast<std::size_t>(panel)].page : nullptr;
}

void TabPanel::resizeEvent(QResizeEvent*) {
    bar_->setGeometry(0, 0, width(), kBarHeight);
    for (const Panel& panel : panels_)
        setGeometryNow(panel.page, pageRect());
}

QRect TabPanel::pageRect() const {
    return {0, kBarHeight, width(), std::max(0, height() - kBarHeight)};
}

void TabPanel::showFrontPage() {
    QWidget* page = panel(Value());
    if (page == front_)
        return;
    if (front_ != nullptr)
        front_->hide();
    front_ = page;
    if (page != nullptr)
        page->show();
    emit Change();
}

} // namespace velmarin
