#pragma once

#include <QLabel>
#include <QObject>

#include <string>

namespace velmarin {

class AnchoredLayout;

/// The logo and the acknowledgement of a main window. The logo alternates between two pictures each time the pointer
/// enters it, and can be read on light and dark desktops. The acknowledgement is hidden when the pointer enters it or a
/// search has run.
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
    /// The index in pLogo.
    int shownLogo_ = 0;
};

} // namespace velmarin
