#include "cli/MaintenanceReport.h"

#include <utility>

namespace velmarin {

namespace {

std::string_view outcomeName(ItemOutcome outcome) {
    switch (outcome) {
    case ItemOutcome::Installed:
        return "installed";
    case ItemOutcome::Exported:
        return "exported";
    case ItemOutcome::AlreadyThere:
        return "already there";
    case ItemOutcome::BackedUp:
        return "saved";
    case ItemOutcome::Replaced:
        return "replaced";
    case ItemOutcome::Added:
        return "added";
    case ItemOutcome::Skipped:
        break;
    }
    return "skipped";
}

} // namespace

void report(const MaintenanceResult& result, Session& session) {
    for (const HandledItem& each : result.items)
        session.out().record({outcomeName(each.outcome), each.item.path().native()});
    for (const Failure& each : result.failures)
        session.couldNot(each);
}

Progress waitNotice() {
    return [said = false](const WorkDone& done) mutable {
        if (!done.waitsFor.empty() && !std::exchange(said, true))
            complain(done.waitsFor.native() + ": waiting for another install, update or export to end");
    };
}

} // namespace velmarin
