#pragma once

#include "platform/Host.h"

#include <QFileDialog>

namespace velmarin {

/// Asks for a folder, with the whole prompt above the list: a title would cut it off.
class FolderDialog : public QFileDialog {
    Q_OBJECT

  public:
    FolderDialog(const QString& prompt, const QString& openAt, Host::FolderChoice choice, QWidget* parent);

    /// Shows the dialog. The path of the folder, empty if the dialog was cancelled.
    QString choose();

  protected:
    void accept() override;

  private:
    Host::FolderChoice choice_;
    QString chosen_;
};

} // namespace velmarin
