#include "shell/SideLink.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"
#include "controls/QtText.h"
#include "search/QueryBar.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "side/SubWindow.h"

#include <QGuiApplication>

namespace velmarin {

SideLink::SideLink(App& app, MainWindow& mainWindow, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), app_(app), mainWindow_(mainWindow), SubWinBV_(new BevelButton("Subwindow", parent)) {
    SubWinBV_->setObjectName(QStringLiteral("SubWinBV"));
    SubWinBV_->setToolTip(QStringLiteral("Look words up in text"));
    SubWinBV_->setToggle(true);
    SubWinBV_->setEnabled(false);
    layout.add(SubWinBV_, QRect(174, 3, 71, 28), Anchor::Left | Anchor::Top);
    connect(SubWinBV_, &BevelButton::clicked, this, &SideLink::SubWinBV_Action);
}

bool SideLink::pSubWinShown() const {
    return !pMySubWin_.isNull();
}

SubWindow* SideLink::pMySubWin() const {
    return pMySubWin_;
}

void SideLink::SubWinBV_Action() {
    if (!SubWinBV_->isChecked()) {
        close();
        return;
    }
    // Pressed in again once the window is there.
    SubWinBV_->setChecked(false);
    if (!mainWindow_.hasGroup())
        return;
    SideServices services{
        .host = app_.host(), .busy = app_.busy(), .preferencesFolder = app_.module.pThis_PreferencesFolder};
    pMySubWin_ = new SubWindow(*this, services, hangingFor(QGuiApplication::platformName()));
    connect(pMySubWin_, &SubWindow::closed, this, [this, opened = pMySubWin_.data()] {
        if (pMySubWin_ == opened)
            pMySubWin_.clear();
        showState();
    });
    showState();
    pMySubWin_->open();
}

void SideLink::close() {
    if (pMySubWin_)
        pMySubWin_->shut();
}

void SideLink::showState() {
    SubWinBV_->setChecked(pSubWinShown());
    for (const std::string_view command : {"SubwinDic", "SubwinFind"})
        mainWindow_.menus().setItemEnabled(command, pSubWinShown());
}

void SideLink::synchronise(const QString& query) {
    if (pMySubWin_)
        pMySubWin_->synchronise(query);
}

void SideLink::takeTarget(FindTarget target) {
    if (pMySubWin_)
        pMySubWin_->takeTarget(target);
}

QMainWindow* SideLink::window() {
    return &mainWindow_;
}

FolderItem SideLink::pDictionaryGroupFolder() {
    return mainWindow_.group().pDictionaryGroupFolder;
}

void SideLink::noteWritten(const std::string& path, const Result& result) {
    app_.preferences().note(path, result);
}

void SideLink::setSearchText(std::string_view text) {
    mainWindow_.queryBar().SearchEF()->setText(toQ(text));
    mainWindow_.queryBar().SearchEF()->setCursorPosition(0); // of a long message the beginning is what tells
}

void SideLink::focusSearch(bool selectAll) {
    mainWindow_.activateWindow();
    mainWindow_.queryBar().SearchEF()->setFocus();
    if (selectAll)
        mainWindow_.queryBar().SearchEF()->selectAll();
}

void SideLink::setOKBTDefault(bool isDefault) {
    mainWindow_.queryBar().OKBT()->setDefault(isDefault);
}

void SideLink::searchAll(const std::string& word) {
    mainWindow_.model().search.searchAll(word);
}

void SideLink::showProgress() {
    mainWindow_.queryBar().PB()->show();
}

void SideLink::setProgressMaximum(int maximum) {
    mainWindow_.queryBar().PB()->setMaximum(maximum);
}

void SideLink::setProgressValue(int value) {
    mainWindow_.queryBar().PB()->setValue(value);
}

void SideLink::showProgressFull() {
    mainWindow_.queryBar().PB()->showFull();
}

void SideLink::hideProgress() {
    mainWindow_.queryBar().PB()->hide();
}

} // namespace velmarin
