#pragma once

#include <QDialog>

#include <filesystem>

class QLabel;

namespace velmarin {

/// Asks the user to wait, with a bar that moves whenever the work lets events run. The code that shows it closes it;
/// the user cannot.
class WaitDlg : public QDialog {
    Q_OBJECT
  public:
    explicit WaitDlg(QWidget* parent);

    /// Shows that the work waits for another run on `folder`; an empty path ends that.
    void showWhatIsWaitedFor(const std::filesystem::path& folder);

    void reject() override {}

  private:
    QLabel* Label1_;
};

} // namespace velmarin
