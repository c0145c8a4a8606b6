#include "making/LongestRun.h"

#include <algorithm>

namespace velmarin {

std::vector<std::size_t> longestRun(const std::vector<std::string>& words) {
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // For each length, the place of the smallest word that ends a run of that length.
    std::vector<std::size_t> endOfLength;
    std::vector<std::size_t> before(words.size(), kNone);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto slot = std::upper_bound(endOfLength.begin(), endOfLength.end(), words[i],
                                           [&](const std::string& word, std::size_t end) { return word < words[end]; });
        if (slot != endOfLength.begin())
            before[i] = *(slot - 1);
        if (slot == endOfLength.end())
            endOfLength.push_back(i);
        else
            *slot = i;
    }
    std::vector<std::size_t> run(endOfLength.size());
    std::size_t at = endOfLength.empty() ? kNone : endOfLength.back();
    for (auto place = run.rbegin(); place != run.rend(); ++place) {
        *place = at;
        at = before[at];
    }
    return run;
}

} // namespace velmarin
