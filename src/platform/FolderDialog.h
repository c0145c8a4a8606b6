#pragma once

#include "platform/Host.h"

#include <QFileDialog>

class QLineEdit;

namespace velmarin {

/// Asks for a folder, with the whole prompt above the list: a title would cut it off. The folder is the one that is
/// typed or selected; if the field is empty, the one that the dialog shows. A dialog for a folder that may be new does
/// not take the folder in which it opened, which is where new ones belong.
class FolderDialog : public QFileDialog {
    Q_OBJECT

  public:
    FolderDialog(const QString& prompt, const QString& openAt, Host::FolderChoice choice, QWidget* parent);

    /// Shows the dialog. The path of the folder, empty if the dialog was cancelled.
    QString choose();

  protected:
    void accept() override;

  private:
    /// The folder that the field and the list say.
    QString named() const;
    /// Why `path` cannot be chosen; empty if it can.
    QString objection(const QString& path) const;

    Host::FolderChoice choice_;
    QString openedAt_;
    QLineEdit* name_ = nullptr;
    QString chosen_;
};

} // namespace velmarin
