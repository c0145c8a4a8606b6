#include "shell/MainWindow.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/ProgressBar.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "search/HitList.h"
#include "search/PageDeck.h"
#include "search/QueryBar.h"
#include "search/WindowLayout.h"
#include "shell/AboutPanel.h"
#include "shell/App.h"
#include "shell/GroupPicker.h"
#include "shell/NoGroupNotice.h"
#include "shell/PageImages.h"
#include "shell/SideLink.h"
#include "side/FindBar.h"
#include "side/SubWindow.h"
#include "side/SubwindowFile.h"
#include "text/NilObjectException.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <array>

namespace velmarin {

namespace {

struct WindowCommand {
    std::string_view name;
    void (MainWindow::*run)(int index);
};

constexpr std::array<WindowCommand, 7> kCommands{{
    {"TabBackNext", &MainWindow::TabBackNext_Action},
    {"ImageBackNext", &MainWindow::ImageBackNext_Action},
    {"ImageUpDown", &MainWindow::ImageUpDown_Action},
    {"TabTopTail", &MainWindow::TabTopTail_Action},
    {"ImageHistory", &MainWindow::ImageHistory_Action},
    {"SubwinDic", &MainWindow::SubwinDic_Action},
    {"SubwinFind", &MainWindow::SubwinFind_Action},
}};

constexpr const char* kTitleWithoutGroup = "VELMARIN";

} // namespace

MainWindow::MainWindow(App& app)
    : app_(app),
      model_(app.host(), app.busy(), [&app]() -> HitModel& { return app.MainWinList().front()->model().hits; }),
      placement_(*this, app.preferences(), app.module) {
    auto* content = new QWidget(this);
    content->setMinimumSize(64, 64);
    layout_ = new AnchoredLayout(content, QSize(design::kWindowWidth, design::kWindowHeight));
    setCentralWidget(content);
    menus_ = new MenuBar([this](std::string_view name, int index) { route(name, index); },
                         [this](std::string_view name) { return handles(name) || app_.handles(name); }, this);
    setMenuBar(menus_);
    menus_->setWindowItems(app_.winItems());
    menus_->setItemEnabled("SubwinDic", false);
    menus_->setItemEnabled("SubwinFind", false);
    // The layout is in pixels, and so is its text: at any other size captions would be cut off.
    QFont font = content->font();
    font.setPixelSize(12);
    content->setFont(font);
    makeParts();
    setTitle(kTitleWithoutGroup);
    placement_.setFirstPlacement(QSize(design::kWindowWidth, design::kWindowHeight), SubwindowSettings{}.width);
    mSetSize();
}

MainWindow::~MainWindow() {
    // A side window that has been closed may still wait for its end, and uses the link to the last.
    qDeleteAll(findChildren<SubWindow*>());
}

void MainWindow::makeParts() {
    QWidget* content = centralWidget();
    groupPicker_ = new GroupPicker(app_, *this, content, *layout_);

    auto* placard = new QFrame(content);
    placard->setObjectName(QStringLiteral("Placard1"));
    layout_->add(placard, QRect(174, 3, 80, 28), Anchor::Left | Anchor::Top);
    sideLink_ = new SideLink(app_, *this, content, *layout_);

    deck_ = new PageDeck(model_.tabs, app_.host(), content);
    queryBar_ = new QueryBar(model_.search, model_.tabs, *deck_, app_.busy(), content, *layout_);
    layout_->add(deck_->TB(),
                 QRect(design::kTabPanelLeft, design::kTabPanelTop, design::kTabPanelWidth, design::kTabPanelHeight),
                 Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
    hitList_ = new HitList(model_.hits, deck_->TB(), content, *layout_);
    about_ = new AboutPanel(content, *layout_);
    notice_ = std::make_unique<NoGroupNotice>(content, *layout_);
    // The row at the top comes first, whatever was made first.
    setTabOrder(groupPicker_->SelectDicFolPU(), sideLink_->SubWinBV());
    setTabOrder(sideLink_->SubWinBV(), queryBar_->SearchEF());
    setTabOrder(queryBar_->SearchEF(), queryBar_->SeparatelyCB());
    setTabOrder(queryBar_->SeparatelyCB(), queryBar_->OKBT());
    stepper_ = std::make_shared<MainWindowStepper>(*this);

    connect(queryBar_, &QueryBar::searched, sideLink_, &SideLink::synchronise);
    connect(queryBar_, &QueryBar::finished, about_, &AboutPanel::hideAbout);
    connect(queryBar_, &QueryBar::finished, this, [this] { notice_->tell(""); });
    connect(deck_, &PageDeck::errataChosen, this,
            [this](const FolderItem& file, int tab) { app_.pageImages().show(file, stepper_, tab); });
    connect(queryBar_, &QueryBar::separatelyChanged, this, &MainWindow::SeparatelyCB_Action);
}

std::string MainWindow::title() const {
    return title_;
}

void MainWindow::setTitle(const std::string& title) {
    title_ = title;
    // Qt reads "[*]" in a title as the mark of an unsaved file, and puts the program's name in place of none.
    const QString shown = title.empty() ? QStringLiteral(" ") : toQ(title);
    setWindowTitle(QString(shown).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void MainWindow::appendToAbout(const std::string& text) {
    about_->append(text);
}

void MainWindow::bringToFront() {
    // A closed window comes back without a group, which is free from now on, for it or for any other.
    if (!isVisible())
        app_.rebuildSelectedDic();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

bool MainWindow::changeGroup(const FolderItem& group) {
    // A pick by keyboard comes without a press on the pop-up.
    sideLink_->close();
    app_.pageImages().close();
    {
        const Busy guard(app_.busy());
        mWritePreferences_DicGroup();
        ReadDictionaryFolder(group);
    }
    readyForSearch();
    return hasGroup();
}

void MainWindow::readyForSearch() {
    if (!hasGroup())
        return;
    queryBar_->SearchEF()->clear();
    queryBar_->SearchEF()->setFocus();
    enableGroupControls(true);
    model_.tabs.dropPage(0);
}

void MainWindow::search(const std::string& word) {
    if (word.empty())
        return;
    queryBar_->SearchEF()->setText(toQ(word));
    queryBar_->OKBT_Action();
}

void MainWindow::SeparatelyCB_Action() {
    if (!model_.group.pProtect)
        mWritePreferences_DicGroup();
}

void MainWindow::enableGroupControls(bool enabled) {
    queryBar_->OKBT()->setEnabled(enabled);
    queryBar_->SeparatelyCB()->setEnabled(enabled);
    sideLink_->SubWinBV()->setEnabled(enabled);
}

void MainWindow::resetToNoGroup() {
    sideLink_->close();
    leaveGroup();
    groupPicker_->mMakeSelectDicPU();
    model_.tabs.setCaption(0, "");
    repaint();
}

void MainWindow::SelectDicFolPU_MouseDown() {
    sideLink_->close();
}

void MainWindow::ReadDictionaryFolder(const FolderItem& group) {
    const QScopedValueRollback protection(model_.group.pProtect, true);
    model_.hits.showInfo("");
    notice_->tell("");
    try {
        setTitle("");
        model_.opener.read(group);
        setTitle(model_.group.pDicGroupName);
        mSetSize();
        model_.opener.mInitialize();
    } catch (const NilObjectException& failure) {
        if (!hasGroup()) {
            showNoGroup(failure.what());
            app_.rebuildSelectedDic();
        }
        app_.host().MsgBox("Error: ReadDictionaryFolder 0");
    }
    if (hasGroup())
        app_.setWinItemText(pMyIndex, model_.group.pDicGroupName);
}

void MainWindow::mSetSize() {
    const QScopedValueRollback protection(model_.group.pProtect, true);
    placement_.restore();
}

void MainWindow::mWritePreferences_DicGroup() {
    app_.preferences().writeGroup(model_.group, model_.search.separately(), app_.module);
}

void MainWindow::mWritePreferences_Window() {
    if (pDefaultMainWindow && isVisible())
        placement_.save();
}

void MainWindow::leaveGroup() {
    groupPicker_->dropPick();
    model_.opener.leave();
    enableGroupControls(false);
}

void MainWindow::showNoGroup(const std::string& reason) {
    const QScopedValueRollback protection(model_.group.pProtect, true);
    sideLink_->close();
    leaveGroup();
    setTitle(kTitleWithoutGroup);
    app_.setWinItemText(pMyIndex, std::string(kWinItemWithoutGroup));
    queryBar_->showNoGroup();
    model_.hits.showInfo("");
    notice_->tell(reason);
}

bool MainWindow::handles(std::string_view command) const {
    return std::any_of(kCommands.begin(), kCommands.end(),
                       [command](const WindowCommand& each) { return each.name == command; });
}

bool MainWindow::handle(std::string_view command, int index) {
    for (const WindowCommand& each : kCommands)
        if (each.name == command) {
            (this->*each.run)(index);
            return true;
        }
    return false;
}

void MainWindow::route(std::string_view command, int index) {
    // Qt keeps a window's shortcuts alive under its side window; what tabs and pages do is for the window in front.
    if (handles(command) && QApplication::activeWindow() != this)
        return;
    if (!handle(command, index))
        app_.handle(command, index);
}

void MainWindow::TabBackNext_Action(int direction) {
    model_.tabs.TabBackNext_Action(direction);
}

void MainWindow::TabTopTail_Action(int direction) {
    model_.tabs.TabTopTail_Action(direction);
}

void MainWindow::ImageBackNext_Action(int direction) {
    mNextBack(direction, model_.tabs.front());
}

void MainWindow::ImageUpDown_Action(int direction) {
    mUpDown(direction, model_.tabs.front());
}

void MainWindow::ImageHistory_Action(int direction) {
    model_.tabs.ImageHistory_Action(direction);
}

void MainWindow::SubwinDic_Action(int) {
    sideLink_->takeTarget(FindTarget::DicApp);
}

void MainWindow::SubwinFind_Action(int) {
    sideLink_->takeTarget(FindTarget::Find);
}

void MainWindow::mNextBack(int direction, int tab) {
    model_.tabs.mNextBack(direction, tab);
}

void MainWindow::mUpDown(int direction, int tab) {
    model_.tabs.mUpDown(direction, tab);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (app_.busy().busy()) {
        event->ignore();
        app_.busy().whenStopped([this] { close(); });
        return;
    }
    Event_CancelClose();
    event->accept();
}

void MainWindow::Event_CancelClose() {
    mWritePreferences_DicGroup();
    notice_->takeWord();
    showNoGroup();
    if (app_.isLastVisible(*this))
        app_.pageImages().close();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Event_Activate();
}

void MainWindow::Event_Activate() {
    placement_.cameToFront();
    // Qt gives the focus back by itself, and then the field of the other window keeps its selection.
    if (focusWidget() != queryBar_->SearchEF())
        queryBar_->SearchEF()->setFocus();
    app_.ActiveMainWin = this;
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    // Outside of dialogs Qt gives Return to no default button.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && queryBar_->OKBT()->isDefault())
        queryBar_->OKBT()->click();
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
