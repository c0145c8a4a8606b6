#include "scan/ScanTool.h"

#include "text/NumberText.h"
#include "text/Utf8.h"

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

std::string problemOf(const std::string& name, const ChildResult& result) {
    switch (result.end) {
    case ChildResult::End::Stopped:
        return "it was stopped";
    case ChildResult::End::TooLong:
        return name + " takes too long over it";
    case ChildResult::End::TooMuch:
        return name + " makes too much of it";
    case ChildResult::End::NotStarted:
        return name + " could not be started";
    case ChildResult::End::Killed:
        return name + " was killed or crashed";
    case ChildResult::End::Exited:
        break;
    }
    if (result.exitStatus == 0)
        return {};
    if (result.errors.find("Incorrect password") != std::string::npos)
        return "it is protected by a password";
    const std::string told = firstErrorLine(result.errors);
    return name + (told.empty() ? " failed with status " + Str(result.exitStatus) : " failed: " + told);
}

} // namespace

std::string firstErrorLine(std::string_view errors) {
    constexpr std::size_t kMostBytes = 200;
    return toValidUtf8(errors.substr(0, std::min(errors.find_first_of("\r\n"), kMostBytes)));
}

ToolSet::ToolSet(const ScanTools& tools, std::string_view package, std::initializer_list<std::string_view> names)
    : limits_(tools.limits) {
    for (const std::string_view name : names) {
        const auto file = programOnPath(name, tools.searchPath);
        if (file)
            files_.emplace(name, *file);
        else if (missing_.empty())
            missing_ =
                "the program " + std::string(name) + " is missing; it is in the Debian package " + std::string(package);
    }
}

ToolAnswer ToolSet::run(const std::string& name, std::vector<std::string> arguments,
                        const std::function<bool()>& mayContinue, const std::filesystem::path& folder) const {
    ChildResult result = runChild({.file = files_.at(name),
                                   .arguments = std::move(arguments),
                                   .folder = folder,
                                   .limits = limits_,
                                   .mayContinue = mayContinue});
    ToolAnswer answer{.problem = problemOf(name, result), .stopped = result.end == ChildResult::End::Stopped};
    answer.output = std::move(result.output);
    answer.errors = std::move(result.errors);
    return answer;
}

} // namespace velmarin
