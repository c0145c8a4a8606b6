#pragma once

#include <QWidget>

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class SmallTabBar;

/// Pages one behind the other under a bar of small tabs. Captions that are too long are cut in the middle, with the
/// whole of them in a tool tip; tabs that have no room are reached by the scroll buttons or the wheel, and the one in
/// front is always in view. All pages, hidden ones too, have the panel's whole place below the bar.
class TabPanel : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kBarHeight = 22;

    explicit TabPanel(QWidget* parent = nullptr);

    int PanelCount() const { return static_cast<int>(panels_.size()); }

    /// The panel in front; -1 if there is none.
    int Value() const;
    /// Does nothing if there is no such panel.
    void setValue(int panel);

    std::string caption(int panel) const;
    void setCaption(int panel, std::string_view caption);

    /// Puts a panel before the one at `position` (held to 0 and `PanelCount`), and returns its page. The panel in front
    /// stays in front; the first of all comes to the front by itself.
    QWidget* insertPanel(int position, std::string_view caption);
    /// Takes a panel out and deletes its page with all on it, once the present event is over.
    void removePanel(int panel);
    /// The page; null if there is none.
    QWidget* panel(int panel) const;

  signals:
    /// Another page is in front, by the user or by code.
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
