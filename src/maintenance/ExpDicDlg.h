#pragma once

#include "files/FolderItem.h"

#include <QDialog>

#include <vector>

class QLabel;
class QPushButton;
class QTableWidget;

namespace velmarin {

class BevelButton;
class BusyState;
class Host;
class ProgressBar;
struct MaintenanceResult;

/// The export dialog: copies the checked dictionaries to a folder that the user selects. It cannot be closed while it
/// works, and deletes itself when closed.
class ExpDicDlg : public QDialog {
    Q_OBJECT
  public:
    ExpDicDlg(Host& host, BusyState& busy, QWidget* parent);

    /// Adds a row for each dictionary in `dictionaryFolder`.
    void fill(const FolderItem& dictionaryFolder);

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Working;

    void makeControls();
    void CheckBV_Action(int row);
    void CancelBT_Action();
    void OKBT_Action();
    MaintenanceResult mExportDic(const FolderItem& dictionary, const FolderItem& destination);
    bool isChecked(int row) const;
    void setChecked(int row, bool checked);

    Host& host_;
    BusyState& busy_;
    BevelButton* CheckBV_;
    QLabel* ST_;
    QTableWidget* MainLB_;
    QPushButton* CancelBT_;
    ProgressBar* PB_;
    QPushButton* OKBT_;
    std::vector<FolderItem> dictionaries_; ///< by row
    bool working_ = false;
};

} // namespace velmarin
