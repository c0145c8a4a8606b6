#pragma once

#include <QTabBar>

class QStylePainter;

namespace velmarin {

/// The tabs of a TabPanel. The style paints their shapes; the captions are painted here, since styles leave them hardly
/// any room in so small a tab.
class SmallTabBar : public QTabBar {
    Q_OBJECT
  public:
    explicit SmallTabBar(QWidget* parent);

    void setCaption(int tab, const QString& caption);
    /// The caption as it is painted.
    QString shownCaption(int tab) const;

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize tabSizeHint(int tab) const override;
    QSize minimumTabSizeHint(int tab) const override;

  private:
    void fitFont();
    void paintTab(QStylePainter& painter, int tab) const;
    int captionWidth(int tab) const;

    bool fitting_ = false;
};

} // namespace velmarin
