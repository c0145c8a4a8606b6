#pragma once

#include "files/FolderItem.h"

#include <QWidget>

#include <memory>
#include <string>

class QLineEdit;
class QPushButton;

namespace velmarin {

class AnchoredLayout;
class BusyState;
class Host;
class OrderList;
class WindowsPort;

/// The order editor, a window of its own. It edits the group that its main window showed when the editor was opened. It
/// stays open until the user closes it, also if that window leaves the group, and then deletes itself.
class EditDicDlg : public QWidget {
    Q_OBJECT
  public:
    EditDicDlg(WindowsPort& windows, Host& host, BusyState& busy);

    /// The folder of the edited group.
    FolderItem pObjFol;
    /// The main window whose group is edited, by its position in `MainWinList`.
    int MainWin = 0;

    /// Appends the dictionaries of the window to the rows, and shows the group's name.
    void mSet();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void makeControls();
    void makeLabels(AnchoredLayout& layout);
    void CancelBT_Action();
    void SaveBT_Action();
    std::string groupName() const;
    void save();

    WindowsPort& windows_;
    Host& host_;
    BusyState& busy_;
    OrderList* LB_;
    QLineEdit* EF_;
    QPushButton* CancelBT_;
    QPushButton* SaveBT_;
    std::string nameAsSet_;
    bool saving_ = false;
    std::shared_ptr<void> onBusy_;
};

} // namespace velmarin
