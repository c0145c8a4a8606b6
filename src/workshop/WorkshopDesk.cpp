#include "workshop/WorkshopDesk.h"

namespace velmarin {

WorkshopDesk::WorkshopDesk(std::unique_ptr<WorkshopBook> book, Host& host, QWidget* parent)
    : QWidget(parent), book_(std::move(book)), model_(*book_), host_(host) {
    setObjectName(QStringLiteral("WorkshopDesk"));
    model_.showIn(*this);
}

WorkshopDesk::~WorkshopDesk() = default;

void WorkshopDesk::showRows() {}
void WorkshopDesk::showChangedRows(const std::vector<std::size_t>&) {}
void WorkshopDesk::showCurrentPage() {
    emit changed();
}
void WorkshopDesk::showCounts() {
    emit changed();
}
void WorkshopDesk::showAllDone() {}
void WorkshopDesk::showSaved(const Result&) {}
void WorkshopDesk::showTakenOver(std::size_t) {}

} // namespace velmarin
