#include "platform/FolderDialog.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>

namespace velmarin {

FolderDialog::FolderDialog(const QString& prompt, const QString& openAt, Host::FolderChoice choice, QWidget* parent)
    : QFileDialog(parent, QGuiApplication::applicationDisplayName(), openAt), choice_(choice) {
    setOptions(DontUseNativeDialog | ShowDirsOnly);
    if (choice == Host::FolderChoice::MayBeNew) {
        // In the mode for folders Qt takes none that does not exist; in this one `accept` decides.
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
    } else {
        setFileMode(Directory);
    }
    setLabelText(Accept, QStringLiteral("Choose"));
    setLabelText(FileName, QStringLiteral("Folder:"));

    auto* label = new QLabel(prompt, this);
    label->setObjectName(QStringLiteral("Prompt"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    const QMargins margins = layout()->contentsMargins();
    label->setContentsMargins(margins.left(), margins.top(), margins.right(), 0);
    layout()->setMenuBar(label);
}

QString FolderDialog::choose() {
    return exec() == Accepted ? chosen_ : QString();
}

void FolderDialog::accept() {
    const QString path = selectedFiles().value(0);
    if (path.isEmpty())
        return;
    const QFileInfo folder(path);
    const bool isNew = choice_ == Host::FolderChoice::MayBeNew && !folder.exists() && folder.dir().exists();
    if (!folder.isDir() && !isNew) {
        QMessageBox::warning(this, windowTitle(),
                             folder.exists() ? QStringLiteral("This is not a folder:\n%1").arg(path)
                                             : QStringLiteral("There is no such folder:\n%1").arg(path));
        return;
    }
    chosen_ = path;
    done(Accepted);
}

} // namespace velmarin
