#include "platform/FolderDialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace velmarin {

FolderDialog::FolderDialog(const QString& prompt, const QString& openAt, Host::FolderChoice choice, QWidget* parent)
    : QFileDialog(parent, QGuiApplication::applicationDisplayName(), openAt), choice_(choice) {
    setOptions(DontUseNativeDialog | ShowDirsOnly);
    setFileMode(Directory);
    setLabelText(Accept, QStringLiteral("Choose"));
    setLabelText(FileName, QStringLiteral("Folder:"));
    openedAt_ = directory().absolutePath();
    name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (choice == Host::FolderChoice::MayBeNew) {
        // Qt disables the button for a name that does not exist; `accept` decides.
        auto* button = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
        connect(
            name_, &QLineEdit::textChanged, button, [button] { button->setEnabled(true); }, Qt::QueuedConnection);
    }

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

QString FolderDialog::named() const {
    // Not selectedFiles(), which splits a name at quotation marks.
    return name_->text().isEmpty() ? directory().absolutePath()
                                   : QDir::cleanPath(directory().absoluteFilePath(name_->text()));
}

QString FolderDialog::objection(const QString& path) const {
    const QFileInfo folder(path);
    const bool mayBeNew = choice_ == Host::FolderChoice::MayBeNew;
    if (mayBeNew && path == openedAt_)
        return QStringLiteral("Type a name for a new folder, or choose a folder in\n%1").arg(path);
    if (folder.isDir())
        return {};
    if (folder.exists())
        return QStringLiteral("This is not a folder:\n%1").arg(path);
    const bool inAFolder = folder.dir().exists();
    if (mayBeNew && inAFolder)
        return {};
    return QStringLiteral("There is no such folder:\n%1").arg(inAFolder ? path : folder.dir().absolutePath());
}

void FolderDialog::accept() {
    const QString path = named();
    if (const QString why = objection(path); !why.isEmpty()) {
        QMessageBox::warning(this, windowTitle(), why);
        return;
    }
    chosen_ = path;
    done(Accepted);
}

} // namespace velmarin
