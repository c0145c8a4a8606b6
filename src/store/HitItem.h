#pragma once

#include <string>
#include <vector>

namespace velmarin {

/// One row of a list-mode search.
struct HitItem {
    std::string ImageName;
    std::string DictionaryName;
    std::vector<std::string> PageImageName;
    int DictionaryNumber = 0;
};

} // namespace velmarin
