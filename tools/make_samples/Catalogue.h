#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// One dictionary of the sample folder: made when its turn comes, so that one text at a time is in memory.
struct Sample {
    std::string group;
    std::string name;
    std::string source; ///< the dictd dictionary, which is also the name of its package without "dict-"
    std::function<Book(const std::filesystem::path& dictFolder)> make;
};

/// All samples, group by group.
std::vector<Sample> allSamples();

} // namespace velmarin
