#include "maintenance/WaitDlg.h"

#include "controls/AnchoredLayout.h"
#include "maintenance/LockedFolder.h"
#include "platform/QtText.h"

#include <QLabel>
#include <QProgressBar>

namespace velmarin {

WaitDlg::WaitDlg(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), Label1_(new QLabel(this)) {
    setObjectName(QStringLiteral("WaitDlg"));
    constexpr QSize size(375, 79);
    const Anchors locks = Anchor::Left | Anchor::Top | Anchor::Right;
    auto* layout = new AnchoredLayout(this, size);

    auto* ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setAccessibleName(QStringLiteral("Work in progress"));
    ProgressBar1->setRange(0, 0);
    ProgressBar1->setTextVisible(false);
    layout->add(ProgressBar1, QRect(25, 14, 323, 20), locks);

    showWhatIsWaitedFor({});
    Label1_->setObjectName(QStringLiteral("Label1"));
    Label1_->setAlignment(Qt::AlignCenter);
    QFont bold = Label1_->font();
    bold.setBold(true);
    Label1_->setFont(bold);
    layout->add(Label1_, QRect(25, 46, 320, 20), locks);

    resize(size);
}

void WaitDlg::showWhatIsWaitedFor(const std::filesystem::path& folder) {
    const QString text = folder.empty() ? QStringLiteral("Please wait a minute !") : toQ(waitMessage(folder));
    Label1_->setText(text);
    Label1_->setToolTip(pathToQ(folder));
}

} // namespace velmarin
