#pragma once

#include <QLabel>
#include <QObject>

#include <string>

namespace velmarin {

class AnchoredLayout;

/// The two ornaments of a main window: the logo, which changes whenever the pointer enters it and suits a light or a
/// dark desktop, and the acknowledgement, which goes away when the pointer enters it or a search has run.
class AboutPanel : public QObject {
    Q_OBJECT

  public:
    AboutPanel(QWidget* parent, AnchoredLayout& layout);

    void append(const std::string& text);
    void hideAbout();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AboutST_MouseEnter();
    void LOGO_MouseEnter();
    void showLogo();

    QLabel* LOGO_;
    QLabel* AboutST_;
    /// Which of the two pictures of pLogo is shown.
    int shownLogo_ = 0;
};

} // namespace velmarin
