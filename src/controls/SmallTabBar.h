#pragma once

#include <QTabBar>

class QStylePainter;

namespace velmarin {

/// The tabs of a TabPanel. The style paints their shapes. The captions are painted here, because styles leave too
/// little room for them in so small a tab.
class SmallTabBar : public QTabBar {
    Q_OBJECT
  public:
    static constexpr int kHeight = 22;

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

    bool settingFont_ = false;
};

} // namespace velmarin
