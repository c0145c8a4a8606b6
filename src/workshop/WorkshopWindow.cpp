#include "workshop/WorkshopWindow.h"

#include "controls/ScreenFit.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "scan/OpenScan.h"
#include "workshop/BookOpener.h"
#include "workshop/GuideForm.h"
#include "workshop/PageListPane.h"
#include "workshop/PageStage.h"
#include "workshop/ReadingBar.h"
#include "workshop/ReadingControl.h"
#include "workshop/ScannedBook.h"
#include "workshop/WelcomePane.h"
#include "workshop/WorkshopDesk.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QRegion>
#include <QScreen>

#include <cstdlib>
#include <utility>

namespace velmarin {

namespace {

constexpr QSize kFirstSize(1100, 760);
constexpr QSize kLeastSize(720, 480);

/// Whether all of a window is visible, as after a start with the same screens.
bool isOnScreens(const WindowPlace& place) {
    QRegion rest(place);
    for (const QRect& screen : screenAreas())
        rest -= screen;
    return rest.isEmpty();
}

} // namespace

WorkshopWindow::WorkshopWindow(Host& host) : host_(host), menus_(new WorkshopMenus(*this, *menuBar())) {
    setObjectName(QStringLiteral("WorkshopWindow"));
    setMinimumSize(kLeastSize);
    resize(kFirstSize);
    showWelcome();
}

void WorkshopWindow::showWelcome() {
    setWindowTitle(QStringLiteral("Velmarin Workshop"));
    auto* welcome = new WelcomePane(this);
    connect(welcome, &WelcomePane::bookWanted, this, &WorkshopWindow::chooseBook);
    connect(welcome, &WelcomePane::scanWanted, this, &WorkshopWindow::chooseScan);
    connect(welcome, &WelcomePane::folderWanted, this, &WorkshopWindow::chooseFolder);
    connect(welcome, &WelcomePane::dictionaryWanted, this, &WorkshopWindow::dictionaryWanted);
    setCentralWidget(welcome);
}

WorkshopWindow::~WorkshopWindow() = default;

void WorkshopWindow::open(const std::filesystem::path& bookOrScan) {
    if (desk_ != nullptr && !desk_->mayClose())
        return;
    std::unique_ptr<BookFolder> folder = openBookOrScan(bookOrScan, host_, this);
    Draft draft;
    if (!folder)
        return;
    if (const Result loaded = folder->loadDraft(draft); !loaded)
        return host_.MsgBox(loaded.failure().message());
    auto book = std::make_unique<ScannedBook>(std::move(folder));
    ScannedBook& scanned = *book;
    openBook(std::move(book), std::move(draft));
    auto* bar = new ReadingBar(desk_);
    desk_->addToBar(bar);
    reading_ = std::make_unique<ReadingControl>(scanned, desk_->model(), *bar, desk_->notice());
    connect(reading_.get(), &ReadingControl::taken, &desk_->stage(), &PageStage::showCurrentPage);
    connect(reading_.get(), &ReadingControl::picturesChanged, &desk_->stage(), &PageStage::dropPictures);
    menus_->refresh();
    reading_->start();
}

void WorkshopWindow::chooseBook() {
    openChosen(host_.SelectFolder("Choose the working folder of a book."));
}

void WorkshopWindow::chooseScan() {
    openChosen(host_.GetOpenFile("Choose a scan: " + kScanFileKinds + ".", kScanFileExtensions));
}

void WorkshopWindow::chooseFolder() {
    openChosen(host_.SelectFolder("Choose a folder of page images."));
}

void WorkshopWindow::openChosen(const std::filesystem::path& chosen) {
    if (!chosen.empty())
        open(chosen);
}

void WorkshopWindow::openBook(std::unique_ptr<WorkshopBook> book, Draft draft) {
    reading_.reset(); // it reads into the book of the old desk, which is closed next
    if (desk_ != nullptr)
        placement_.listWidth = desk_->listWidth();
    desk_ = new WorkshopDesk(std::move(book), host_, this);
    if (placement_.listWidth > 0)
        desk_->setListWidth(placement_.listWidth);
    setCentralWidget(desk_);
    setWindowTitle(toQ(desk_->model().book().name()) + QStringLiteral(" – Velmarin Workshop"));
    connect(desk_, &WorkshopDesk::changed, menus_, &WorkshopMenus::refresh);
    connect(&desk_->list(), &PageListPane::menuWanted, &menus_->pageMenu(),
            [this](const QPoint& place) { menus_->pageMenu().popup(place); });
    desk_->model().open(std::move(draft));
    // Not before the desk is shown.
    QMetaObject::invokeMethod(&desk_->form(), &GuideForm::takeFocus, Qt::QueuedConnection);
}

void WorkshopWindow::rememberPlacement(const FolderItem& preferencesFolder) {
    preferencesFolder_ = preferencesFolder;
    placement_ = readWorkshopPlacement(preferencesFolder).value_or(WorkshopPlacement());
    const WindowPlacement& saved = placement_.window;
    const bool known = saved.width > 0;
    WindowPlace place =
        firstPlace(known ? QSize(saved.width, saved.height) : kFirstSize, 0, screen()->availableGeometry());
    if (const WindowPlace last(saved.left, saved.top, saved.width, saved.height); known && isOnScreens(last))
        place = last;
    move(place.topLeft());
    resize(place.size());
    if (placement_.maximized)
        setWindowState(windowState() | Qt::WindowMaximized);
}

void WorkshopWindow::keepPlacement() {
    if (preferencesFolder_.isNil())
        return;
    placement_.maximized = isMaximized();
    if (!placement_.maximized)
        placement_.window = {.left = x(), .top = y(), .width = width(), .height = height()};
    if (desk_ != nullptr)
        placement_.listWidth = desk_->listWidth();
    // A placement that is not kept is no reason for a message.
    [[maybe_unused]] const Result ignored = writeWorkshopPlacement(preferencesFolder_, placement_);
}

void WorkshopWindow::endNow() {
    if (desk_ != nullptr)
        desk_->keepChanges();
    keepPlacement();
    emit ending();
    if (reading_ != nullptr && reading_->running())
        std::_Exit(EXIT_SUCCESS); // a page takes seconds to read; each that is read is kept, and others are read again
    QCoreApplication::exit(EXIT_SUCCESS); // quit() would close the windows first, which may ask
}

void WorkshopWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(desk_ == nullptr || desk_->mayClose());
    if (event->isAccepted())
        keepPlacement();
}

} // namespace velmarin
