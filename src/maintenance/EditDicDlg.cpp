#include "maintenance/EditDicDlg.h"

#include "controls/AnchoredLayout.h"
#include "controls/FittedText.h"
#include "maintenance/DictionaryOrder.h"
#include "maintenance/OrderList.h"
#include "maintenance/WindowsPort.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "platform/QtText.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace velmarin {

namespace {

constexpr QSize kSize(511, 406);

} // namespace

EditDicDlg::EditDicDlg(WindowsPort& windows, Host& host, BusyState& busy)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      windows_(windows), host_(host), busy_(busy), LB_(new OrderList(this)), EF_(new QLineEdit(this)),
      CancelBT_(new QPushButton(QStringLiteral("Cancel"), this)),
      SaveBT_(new QPushButton(QStringLiteral("Save"), this)) {
    setObjectName(QStringLiteral("EditDicDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    makeControls();
    resize(kSize);
    SaveBT_->setEnabled(!busy_.busy());
    onBusy_ = busy_.onChange([this](bool busyNow) { SaveBT_->setEnabled(!busyNow && !saving_); });
}

void EditDicDlg::makeControls() {
    const Anchors locks = Anchor::Left | Anchor::Top;
    auto* layout = new AnchoredLayout(this, kSize);
    LB_->setObjectName(QStringLiteral("LB"));
    LB_->setAccessibleName(QStringLiteral("Order of the dictionaries"));
    LB_->setAccessibleDescription(QStringLiteral("Alt+Up and Alt+Down move the selected dictionary"));
    layout->add(LB_, QRect(7, 4, 213, 382), locks);

    EF_->setObjectName(QStringLiteral("EF"));
    EF_->setAccessibleName(QStringLiteral("Name of the group"));
    layout->add(EF_, QRect(226, 30, 274, 22), locks);
    makeLabels(*layout);

    CancelBT_->setObjectName(QStringLiteral("CancelBT"));
    layout->add(CancelBT_, QRect(232, 366, 80, 20), locks);
    connect(CancelBT_, &QPushButton::clicked, this, &EditDicDlg::CancelBT_Action);

    SaveBT_->setObjectName(QStringLiteral("SaveBT"));
    layout->add(SaveBT_, QRect(411, 366, 80, 20), locks);
    connect(SaveBT_, &QPushButton::clicked, this, &EditDicDlg::SaveBT_Action);
}

void EditDicDlg::makeLabels(AnchoredLayout& layout) {
    const QRect nameRect(227, 5, 273, 20);
    auto* nameST = new QLabel(QStringLiteral("Name of the group these dictionaries."), this);
    nameST->setObjectName(QStringLiteral("ST.0"));
    QFont bold = nameST->font();
    bold.setBold(true);
    nameST->setFont(fontForWidth(bold, nameST->text(), nameRect.width()));
    layout.add(nameST, nameRect, Anchor::Left | Anchor::Top);

    auto* helpST = new QLabel(QStringLiteral("You can change the order of the items by drag and drop.\n\n"
                                             "If you push \"Cancel\", no modification will be saved.\n\n"
                                             "The modification will be effectuated after restarting the software."),
                              this);
    helpST->setObjectName(QStringLiteral("ST.1"));
    helpST->setStyleSheet(QStringLiteral("color: #800040"));
    helpST->setWordWrap(true);
    helpST->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout.add(helpST, QRect(226, 130, 274, 173), Anchor::Left | Anchor::Top);
}

void EditDicDlg::mSet() {
    const QPointer<EditDicDlg> alive(this);
    const Busy guard(busy_);
    for (const std::string& name : windows_.dictionaryNames(MainWin)) {
        LB_->AddRow(name);
        host_.Yield();
        if (!alive)
            return;
    }
    nameAsSet_ = windows_.pDicGroupName(MainWin);
    EF_->setText(toQ(nameAsSet_));
}

void EditDicDlg::CancelBT_Action() {
    close();
}

void EditDicDlg::SaveBT_Action() {
    if (saving_)
        return;
    saving_ = true;
    SaveBT_->setEnabled(false);
    try {
        save();
    } catch (...) {
        saving_ = false;
        SaveBT_->setEnabled(!busy_.busy());
        throw;
    }
    saving_ = false;
    close();
}

std::string EditDicDlg::groupName() const {
    // The field cannot show bytes that are not UTF-8. If it was not edited, the original bytes are kept.
    return EF_->text() == toQ(nameAsSet_) ? nameAsSet_ : fromQ(EF_->text());
}

void EditDicDlg::save() {
    const Busy guard(busy_);
    DictionaryOrder order{groupName(), LB_->rows()};
    for (std::size_t row = 0; row < order.rows.size(); ++row)
        host_.Yield();
    windows_.setNewDicPref(order.lines());
    windows_.closePageImageWindow();
    if (!windows_.hasGroup(MainWin))
        return windows_.writeOrderAndPick(MainWin, pObjFol);
    windows_.mWritePreferences_DicGroup(MainWin);
    windows_.ReadDictionaryFolder(MainWin, pObjFol);
    windows_.readyForSearch(MainWin);
}

void EditDicDlg::closeEvent(QCloseEvent* event) {
    event->setAccepted(!saving_);
}

void EditDicDlg::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        CancelBT_->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace velmarin
