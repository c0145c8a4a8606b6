#pragma once

#include "files/FolderItem.h"
#include "files/Work.h"
#include "maintenance/Record.h"
#include "platform/Desktop.h"

#include <QPointer>

namespace velmarin {

class BusyState;
class EditDicDlg;
class ExpDicDlg;
class Host;
class WindowsLink;

/// The maintenance commands and their dialogs, of which there is one each. Owned by the application object.
class Maintenance {
  public:
    Maintenance(WindowsLink& windows, Host& host, BusyState& busy, FolderItem desktop = FolderItem(desktopFolder()));
    ~Maintenance();

    /// Asks for a dictionary, and updates every installed copy of it or, where there is none, installs it. Works while
    /// `WaitDlg` is up, holding a Busy guard, and returns when all is done.
    void mUpDateDictionary();
    /// Shows the export dialog with the dictionaries of all groups, and returns.
    void mExportDic();
    /// Shows the order editor for the group of a main window, and returns. Where it is up already, it gets the rows
    /// once more.
    void changeDictionariesOrder(int window, const FolderItem& group);
    /// To be told when a main window gives its group up: an order editor for it closes, since nothing would be saved.
    void windowLeftGroup(int window);

  private:
    Record mInstallDictionary(const FolderItem& dictionary, const Progress& progress);

    WindowsLink& windows_;
    Host& host_;
    BusyState& busy_;
    FolderItem desktop_;
    QPointer<ExpDicDlg> expDicDlg_;
    QPointer<EditDicDlg> editDicDlg_;
};

} // namespace velmarin
