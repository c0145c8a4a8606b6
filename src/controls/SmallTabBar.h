#pragma once

#include <QTabBar>

namespace velmarin {

/// The tabs of a TabPanel.
class SmallTabBar : public QTabBar {
    Q_OBJECT
  public:
    explicit SmallTabBar(QWidget* parent);

    void setCaption(int tab, const QString& caption);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    QSize tabSizeHint(int tab) const override;
    QSize minimumTabSizeHint(int tab) const override;

  private:
    void fitFont();
    int captionWidth(int tab) const;

    bool fitting_ = false;
};

} // namespace velmarin
