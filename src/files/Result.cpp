#include "files/Result.h"

#include <string_view>

namespace velmarin {

std::string Failure::message() const {
    constexpr std::string_view kSubject = "it "; // the path takes its place
    const std::string path = "\"" + item.path().native() + "\"";
    return reason.starts_with(kSubject) ? path + " " + reason.substr(kSubject.size()) : path + ": " + reason;
}

} // namespace velmarin
