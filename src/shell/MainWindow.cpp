#include "shell/MainWindow.h"

#include "controls/BevelButton.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "search/QueryBar.h"
#include "search/TabPanelPlace.h"
#include "shell/MenuBar.h"
#include "shell/MenuTree.h"
#include "shell/NoGroupNotice.h"
#include "shell/PageImages.h"
#include "shell/PreferenceWriter.h"
#include "shell/SideButton.h"
#include "shell/WindowListPort.h"
#include "shell/WindowServices.h"
#include "side/SubWindow.h"
#include "side/SubwindowFile.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QShortcut>

namespace velmarin {

namespace {

constexpr const char* kTitleWithoutGroup = "VELMARIN";
/// An opening that takes no longer shows no progress, which would only flash.
constexpr qint64 kUnnoticedMilliseconds = 300;

} // namespace

MainWindow::MainWindow(const WindowServices& services)
    : services_(services), parts_(*this, *this, services), placement_(*this, services.preferences) {
    makeMenus();
    connect(parts_.queryBar, &QueryBar::separatelyChanged, this, &MainWindow::SeparatelyCB_Action);
    setTitle(kTitleWithoutGroup);
    placement_.setFirstPlacement(QSize(design::kWindowWidth, design::kWindowHeight), SubwindowSettings{}.width);
    mSetSize();
}

MainWindow::~MainWindow() {
    // A closed side window may still wait for a look-up to end, and uses its main window until then.
    qDeleteAll(findChildren<SubWindow*>());
}

void MainWindow::makeMenus() {
    const Commands ofWindow{this};
    const Commands all = services_.commands.withFirst(*this);
    const auto run = [this, ofWindow, all](std::string_view command, int index) {
        // Qt keeps a window's shortcuts active under its side window, but its own commands need it in front.
        if (!ofWindow.handles(command) || QApplication::activeWindow() == this)
            all.run(command, index);
    };
    menus_ = new MenuBar(
        run, [all](std::string_view command) { return all.handles(command); }, this);
    setMenuBar(menus_);
    menus_->setWindowItems(services_.windows.winItems());
    const auto enableSideCommands = [this](bool enabled) {
        for (const std::string_view command : {"SubwinDic", "SubwinFind"})
            menus_->setItemEnabled(command, enabled);
    };
    enableSideCommands(false);
    connect(parts_.sideButton, &SideButton::shown, this, enableSideCommands);
}

void MainWindow::setTitle(const std::string& title) {
    title_ = title;
    // Qt reads "[*]" in a title as the mark of an unsaved file, and replaces an empty one by the program's name.
    const QString shown = title.empty() ? QStringLiteral(" ") : toQ(title);
    setWindowTitle(QString(shown).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void MainWindow::bringToFront() {
    // A closed window comes back without a group, so its old one is free from now on.
    if (!isVisible())
        services_.windows.rebuildSelectedDic();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::SelectDicFolPU_MouseDown() {
    parts_.sideButton->close();
}

bool MainWindow::changeGroup(const FolderItem& folder) {
    // A pick by keyboard comes without a press on the pop-up.
    parts_.sideButton->close();
    services_.pageImages.close();
    {
        const Busy guard(services_.busy);
        mWritePreferences_DicGroup();
        ReadDictionaryFolder(folder);
    }
    readyForSearch();
    return hasGroup();
}

void MainWindow::groupChanged() {
    if (!services_.pSelectedDicTag.empty())
        services_.windows.setWinItemText(pMyIndex, title_);
    search(parts_.notice->takeWaitingWord());
}

void MainWindow::readyForSearch() {
    if (!hasGroup())
        return;
    parts_.queryBar->SearchEF()->clear();
    parts_.queryBar->SearchEF()->setFocus();
    enableGroupControls(true);
    model().tabs.dropPage(0);
}

void MainWindow::search(const std::string& word) {
    if (word.empty())
        return;
    parts_.queryBar->SearchEF()->setText(toQ(word));
    parts_.queryBar->OKBT_Action();
}

void MainWindow::SeparatelyCB_Action() {
    if (!group().pProtect)
        mWritePreferences_DicGroup();
}

void MainWindow::enableGroupControls(bool enabled) {
    parts_.queryBar->OKBT()->setEnabled(enabled);
    parts_.queryBar->SeparatelyCB()->setEnabled(enabled);
    parts_.sideButton->SubWinBV()->setEnabled(enabled);
}

void MainWindow::resetToNoGroup() {
    parts_.sideButton->close();
    leaveGroup();
    parts_.groupPicker->mMakeSelectDicPU();
    model().tabs.setCaption(0, "");
    repaint();
}

void MainWindow::ReadDictionaryFolder(const FolderItem& folder) {
    const QScopedValueRollback protection(model().group.pProtect, true);
    model().hits.showInfo("");
    parts_.notice->setReason("");
    try {
        setTitle("");
        if (!readGroup(folder)) {
            showNoGroup("The opening of this group was stopped.");
            services_.windows.rebuildSelectedDic();
            return;
        }
        setTitle(group().pDicGroupName);
        mSetSize();
        model().opener.mInitialize();
    } catch (const NilObjectException& failure) {
        if (!hasGroup()) {
            showNoGroup(failure.what());
            services_.windows.rebuildSelectedDic();
        }
        services_.host.MsgBoxWithDetails("Error: ReadDictionaryFolder 0", failure.what());
    }
    if (hasGroup())
        services_.windows.setWinItemText(pMyIndex, group().pDicGroupName);
}

bool MainWindow::readGroup(const FolderItem& folder) {
    bool stopped = false;
    const QShortcut escape(Qt::Key_Escape, this, [&stopped] { stopped = true; });
    QElapsedTimer time;
    time.start();
    const auto showProgress = [&](std::size_t done, std::size_t of) {
        if (time.hasExpired(kUnnoticedMilliseconds))
            parts_.notice->setProgress("Opening the group: " + Str(static_cast<std::int64_t>(done)) + " of " +
                                       Str(static_cast<std::int64_t>(of)) + " dictionaries. Esc stops it.");
        return !stopped && !services_.busy.stopWanted();
    };
    const auto endProgress = qScopeGuard([this] { parts_.notice->setProgress({}); });
    return model().opener.read(folder, showProgress);
}

void MainWindow::mSetSize() {
    const QScopedValueRollback protection(model().group.pProtect, true);
    placement_.restore();
}

void MainWindow::mWritePreferences_DicGroup() {
    services_.preferences.writeGroup(group(), model().search.separately());
}

void MainWindow::mWritePreferences_Window() {
    if (pDefaultMainWindow && isVisible())
        placement_.save();
}

void MainWindow::leaveGroup() {
    parts_.groupPicker->dropPick();
    model().opener.leave();
    enableGroupControls(false);
}

void MainWindow::showNoGroup(const std::string& reason) {
    const QScopedValueRollback protection(model().group.pProtect, true);
    parts_.sideButton->close();
    leaveGroup();
    setTitle(kTitleWithoutGroup);
    services_.windows.setWinItemText(pMyIndex, std::string(kWinItemWithoutGroup));
    parts_.queryBar->showNoGroup();
    model().hits.showInfo("");
    parts_.notice->setReason(reason);
}

void MainWindow::TabBackNext_Action(int direction) {
    model().tabs.TabBackNext_Action(direction);
}

void MainWindow::TabTopTail_Action(int direction) {
    model().tabs.TabTopTail_Action(direction);
}

void MainWindow::ImageBackNext_Action(int direction) {
    model().tabs.mNextBack(direction, model().tabs.front());
}

void MainWindow::ImageUpDown_Action(int direction) {
    model().tabs.mUpDown(direction, model().tabs.front());
}

void MainWindow::ImageHistory_Action(int direction) {
    model().tabs.ImageHistory_Action(direction);
}

void MainWindow::SubwinDic_Action(int) {
    parts_.sideButton->takeTarget(FindTarget::LookUp);
}

void MainWindow::SubwinFind_Action(int) {
    parts_.sideButton->takeTarget(FindTarget::Find);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (services_.busy.busy()) {
        event->ignore();
        services_.busy.whenStopped([this] { close(); });
        return;
    }
    Event_CancelClose();
    event->accept();
}

void MainWindow::Event_CancelClose() {
    mWritePreferences_DicGroup();
    parts_.notice->takeWaitingWord();
    showNoGroup();
    if (services_.windows.isLastVisible(*this))
        services_.pageImages.close();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Event_Activate();
}

void MainWindow::Event_Activate() {
    placement_.cameToFront();
    // Qt restores the focus itself, and then the field of the other window keeps its selection.
    if (focusWidget() != parts_.queryBar->SearchEF())
        parts_.queryBar->SearchEF()->setFocus();
    services_.windows.activated(pMyIndex);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    // Outside of dialogs Qt gives Return to no default button.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && parts_.queryBar->OKBT()->isDefault())
        parts_.queryBar->OKBT()->click();
    else
        QMainWindow::keyPressEvent(event);
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    Event_Moved();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Event_Resized();
}

void MainWindow::Event_Moved() {
    mWritePreferences_Window();
}

void MainWindow::Event_Resized() {
    mWritePreferences_Window();
}

} // namespace velmarin
