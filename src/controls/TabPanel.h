#pragma once

#include "controls/SmallTabBar.h"

#include <QWidget>

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A stack of pages under a bar of small tabs. Long captions are elided in the middle and shown whole in a tool tip.
/// Tabs that do not fit are reached by the scroll buttons or the wheel; the front tab is always in view. All pages,
/// including hidden ones, fill the panel below the bar.
class TabPanel : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kBarHeight = SmallTabBar::kHeight;

    explicit TabPanel(QWidget* parent = nullptr);

    int PanelCount() const { return static_cast<int>(panels_.size()); }

    /// The panel in front, or -1.
    int Value() const;
    /// Does nothing if there is no such panel.
    void setValue(int panel);

    std::string caption(int panel) const;
    void setCaption(int panel, std::string_view caption);
    /// A text for the tool tip of the tab, after a caption that is elided.
    void setNote(int panel, std::string_view note);

    /// Inserts a panel at `position`, clamped to 0..`PanelCount`, and returns its page. The panel in front stays in
    /// front; the first panel of all comes to the front.
    QWidget* insertPanel(int position, std::string_view caption);
    /// Removes a panel. Its page and all its children are deleted when the current event is over.
    void removePanel(int panel);
    /// The page, or null.
    QWidget* panel(int panel) const;

  signals:
    /// Emitted when another page comes to the front, by the user or by code.
    void Change();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Panel {
        std::string caption;
        QWidget* page;
    };
    bool has(int panel) const { return panel >= 0 && panel < PanelCount(); }
    QRect pageRect() const;
    void showFrontPage();

    SmallTabBar* bar_;
    std::vector<Panel> panels_;
    QWidget* front_ = nullptr;
};

} // namespace velmarin
