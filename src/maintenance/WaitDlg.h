#pragma once

#include <QDialog>

namespace velmarin {

/// Asks the user to wait, with a bar that moves whenever the work lets events run. The code that shows it closes it;
/// the user cannot.
class WaitDlg : public QDialog {
    Q_OBJECT
  public:
    explicit WaitDlg(QWidget* parent);

    void reject() override {}
};

} // namespace velmarin
