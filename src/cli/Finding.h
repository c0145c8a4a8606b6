#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// A problem in a dictionary that its maker should fix.
struct Finding {
    std::filesystem::path file;
    /// From 1; 0 if the problem is the file or folder as a whole.
    std::uint64_t line = 0;
    std::string problem;
};

/// Findings in their order. Of those in one file that differ only in names and numbers, the first kMostOfAKind are
/// kept, so that a damaged file of millions of lines takes no memory for each; the last one says how many more there
/// are.
class Findings {
  public:
    void push_back(Finding finding);
    /// Gives the findings away, with the counts in them.
    std::vector<Finding> take();

    static constexpr std::uint64_t kMostOfAKind = 100;

  private:
    struct Kind {
        std::uint64_t count = 0;
        std::size_t last = 0; ///< the last one that is kept
    };
    std::vector<Finding> findings_;
    std::unordered_map<std::string, Kind> kinds_;
};

} // namespace velmarin
