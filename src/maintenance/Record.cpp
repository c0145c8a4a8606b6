#include "maintenance/Record.h"

#include "text/Utf8.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr std::size_t kMostListed = 200;

} // namespace

std::string deedInWords(Deed deed) {
    switch (deed) {
    case Deed::Installed:
        return "installed";
    case Deed::Exported:
        return "exported";
    case Deed::AlreadyThere:
        return "already there";
    case Deed::BackedUp:
        return "saved";
    case Deed::Replaced:
        return "replaced";
    case Deed::Added:
        return "added";
    case Deed::Skipped:
        return "skipped";
    }
    return {};
}

std::string failureMessage(const Record& record) {
    if (record.failures.empty())
        return {};
    std::string message =
        record.failures.size() == 1 ? "This item could not be handled:\n" : "These items could not be handled:\n";
    const std::size_t shown = std::min(record.failures.size(), kMostListed);
    for (std::size_t i = 0; i < shown; ++i)
        message += "\n" + toValidUtf8(record.failures[i].item.path().native()) + "\n    " + record.failures[i].reason;
    if (shown < record.failures.size())
        message += "\n\nand " + std::to_string(record.failures.size() - shown) + " more.";
    return message;
}

} // namespace velmarin
