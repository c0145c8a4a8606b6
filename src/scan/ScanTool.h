#pragma once

#include "platform/ChildProgram.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The programs that read PDF and DjVu, and what they may use for a page.
struct ScanTools {
    std::string searchPath = searchPathOfEnvironment();
    ChildLimits limits = {.wall = std::chrono::minutes(3),
                          .processor = std::chrono::minutes(2),
                          .memory = std::uint64_t{4} << 30,
                          .fileSize = std::uint64_t{1} << 30,
                          .output = std::size_t{1} << 30};
};

/// The output of a program that read a scan.
struct ToolAnswer {
    std::string output = {};
    std::string errors = {};  ///< its error output, which can hold warnings even if it succeeded
    std::string problem = {}; ///< empty if it succeeded; otherwise a clause that names the program
    bool stopped = false;     ///< by mayContinue; `problem` says so too

    bool ok() const { return problem.empty(); }
};

/// The first line of a program's error output, short enough to be shown.
std::string firstErrorLine(std::string_view errors);

/// The programs of a package, found on the search path.
class ToolSet {
  public:
    ToolSet(const ScanTools& tools, std::string_view package, std::initializer_list<std::string_view> names);

    /// Names the first program that is missing, and its package; empty if all are there.
    const std::string& missing() const { return missing_; }

    /// Runs one of the programs. `folder` is its working folder if it writes files.
    ToolAnswer run(const std::string& name, std::vector<std::string> arguments,
                   const std::function<bool()>& mayContinue, const std::filesystem::path& folder = {}) const;

  private:
    ChildLimits limits_;
    std::map<std::string, std::filesystem::path> files_;
    std::string missing_;
};

} // namespace velmarin
