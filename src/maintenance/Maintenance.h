#pragma once

#include "files/FolderItem.h"
#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"
#include "platform/Desktop.h"

#include <QPointer>

namespace velmarin {

class BusyState;
class EditDicDlg;
class ExpDicDlg;
class Host;
class WindowsPort;

/// The maintenance commands and their dialogs, one of each. Owned by the application object.
class Maintenance {
  public:
    Maintenance(WindowsPort& windows, Host& host, BusyState& busy, FolderItem desktop = FolderItem(desktopFolder()));
    ~Maintenance();

    /// Asks for a dictionary and updates every installed copy of it or, if there is none, installs it. Shows `WaitDlg`,
    /// holds a Busy guard, and returns when the work is done.
    void mUpDateDictionary();
    /// Shows the export dialog with the dictionaries of all groups, and returns at once.
    void mExportDic();
    /// Shows the order editor for the group of a main window, and returns at once. An editor that is already open gets
    /// the rows once more.
    void changeDictionariesOrder(int window, const FolderItem& group);

  private:
    MaintenanceResult mInstallDictionary(const FolderItem& dictionary, const Progress& progress);

    WindowsPort& windows_;
    Host& host_;
    BusyState& busy_;
    FolderItem desktop_;
    QPointer<ExpDicDlg> expDicDlg_;
    QPointer<EditDicDlg> editDicDlg_;
};

} // namespace velmarin
