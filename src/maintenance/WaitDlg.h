#pragma once

#include <QDialog>

#include <filesystem>

class QLabel;

namespace velmarin {

/// Says that the user has to wait, and moves as far as the work lets events run. The user cannot close it.
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
