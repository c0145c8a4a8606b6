#include "shell/SideButton.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "platform/Desktop.h"
#include "shell/WindowServices.h"
#include "side/MainWindowPort.h"
#include "side/SubWindow.h"

#include <QGuiApplication>

namespace velmarin {

SideButton::SideButton(MainWindowPort& mainWindow, const WindowServices& services, QWidget* parent,
                       AnchoredLayout& layout)
    : QObject(parent), mainWindow_(mainWindow), services_(services), SubWinBV_(new BevelButton("Subwindow", parent)) {
    SubWinBV_->setObjectName(QStringLiteral("SubWinBV"));
    SubWinBV_->setToolTip(QStringLiteral("Look words up in text"));
    SubWinBV_->setToggle(true);
    SubWinBV_->setEnabled(false);
    layout.add(SubWinBV_, QRect(174, 3, 71, 28), Anchor::Left | Anchor::Top);
    connect(SubWinBV_, &BevelButton::clicked, this, &SideButton::SubWinBV_Action);
}

SubWindow* SideButton::pMySubWin() const {
    return pMySubWin_;
}

void SideButton::SubWinBV_Action() {
    if (!SubWinBV_->isChecked()) {
        close();
        return;
    }
    // showState presses it in again once the window exists.
    SubWinBV_->setChecked(false);
    if (mainWindow_.pDictionaryGroupFolder().isNil())
        return;
    SideServices services{.host = services_.host,
                          .busy = services_.busy,
                          .preferencesFolder = services_.pThis_PreferencesFolder,
                          .desktop = FolderItem(desktopFolder())};
    pMySubWin_ = new SubWindow(mainWindow_, services, attachmentFor(QGuiApplication::platformName()));
    connect(pMySubWin_, &SubWindow::closed, this, [this, opened = pMySubWin_.data()] {
        if (pMySubWin_ == opened)
            pMySubWin_.clear();
        showState();
    });
    showState();
    pMySubWin_->open();
}

void SideButton::close() {
    if (pMySubWin_)
        pMySubWin_->shut();
}

void SideButton::showState() {
    SubWinBV_->setChecked(pSubWinShown());
    emit shown(pSubWinShown());
}

void SideButton::synchronise(const QString& query) {
    if (pMySubWin_)
        pMySubWin_->synchronise(query);
}

void SideButton::takeTarget(FindTarget target) {
    if (pMySubWin_)
        pMySubWin_->takeTarget(target);
}

} // namespace velmarin
