#include "maintenance/WaitDlg.h"

#include "controls/AnchoredLayout.h"

#include <QLabel>
#include <QProgressBar>

namespace velmarin {

WaitDlg::WaitDlg(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
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

    auto* Label1 = new QLabel(QStringLiteral("Please wait a minute !"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    QFont bold = Label1->font();
    bold.setBold(true);
    Label1->setFont(bold);
    layout->add(Label1, QRect(25, 46, 320, 20), locks);

    resize(size);
}

} // namespace velmarin
