#include "workshop/WorkshopWindow.h"

#include "platform/Host.h"
#include "platform/QtText.h"
#include "workshop/WelcomePane.h"
#include "workshop/WorkshopDesk.h"
#include "workshop/WorkshopMenus.h"

#include <QCloseEvent>

#include <utility>

namespace velmarin {

namespace {

constexpr QSize kFirstSize(1100, 760);
constexpr QSize kLeastSize(720, 480);

} // namespace

WorkshopWindow::WorkshopWindow(Host& host) : host_(host), menus_(new WorkshopMenus(*this)) {
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
    setCentralWidget(welcome);
}

void WorkshopWindow::open(const std::filesystem::path&) {}
void WorkshopWindow::chooseBook() {}
void WorkshopWindow::chooseScan() {}
void WorkshopWindow::chooseFolder() {}

void WorkshopWindow::openBook(std::unique_ptr<WorkshopBook> book, Draft draft) {
    desk_ = new WorkshopDesk(std::move(book), host_, this);
    setCentralWidget(desk_);
    setWindowTitle(toQ(desk_->model().book().name()) + QStringLiteral(" – Velmarin Workshop"));
    connect(desk_, &WorkshopDesk::changed, menus_, &WorkshopMenus::refresh);
    desk_->model().open(std::move(draft));
}

void WorkshopWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(desk_ == nullptr || desk_->mayClose());
}

} // namespace velmarin
