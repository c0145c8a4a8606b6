#include "workshop/WorkshopWindow.h"

#include "platform/QtText.h"
#include "workshop/WorkshopDesk.h"

#include <QMenuBar>

namespace velmarin {

WorkshopWindow::WorkshopWindow(Host& host) : host_(host), bookMenu_(menuBar()->addMenu(QStringLiteral("&Book"))) {
    setObjectName(QStringLiteral("WorkshopWindow"));
    setWindowTitle(QStringLiteral("Velmarin Workshop"));
}

void WorkshopWindow::open(const std::filesystem::path&) {}

void WorkshopWindow::openBook(std::unique_ptr<WorkshopBook> book, Draft draft) {
    desk_ = new WorkshopDesk(std::move(book), host_, this);
    setCentralWidget(desk_);
    setWindowTitle(toQ(desk_->model().book().name()) + QStringLiteral(" – Velmarin Workshop"));
    connect(desk_, &WorkshopDesk::changed, this, &WorkshopWindow::bookChanged);
    desk_->model().open(std::move(draft));
}

} // namespace velmarin
