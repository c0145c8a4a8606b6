#pragma once

#include <QDialog>

namespace velmarin {

/// Says that the user has to wait, and moves meanwhile as far as whoever works lets events run. It goes with the work,
/// not by the user's hand.
class WaitDlg : public QDialog {
    Q_OBJECT
  public:
    explicit WaitDlg(QWidget* parent);

    void reject() override {}
};

} // namespace velmarin
