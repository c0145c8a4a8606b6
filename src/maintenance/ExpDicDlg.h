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
struct Record;

/// The export dialog: ticked dictionaries are copied into a folder that the user chooses. Deletes itself when closed,
/// which it refuses while it works.
class ExpDicDlg : public QDialog {
    Q_OBJECT
  public:
    ExpDicDlg(Host& host, BusyState& busy, QWidget* parent);

    /// Adds a row for every dictionary of a `DictionaryFolder`.
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
    void mExportDic(const FolderItem& dictionary, const FolderItem& destination, Record& record);
    bool ticked(int row) const;
    void tick(int row, bool on);

    Host& host_;
    BusyState& busy_;
    BevelButton* CheckBV_;
    QLabel* ST_;
    QTableWidget* MainLB_;
    QPushButton* CancelBT_;
    ProgressBar* PB_;
    QPushButton* OKBT_;
    std::vector<FolderItem> dictionaries_; // of the rows
    bool working_ = false;
};

} // namespace velmarin
