#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// One dictionary of the sample folder. Its text is read only when it is made.
struct Sample {
    std::string group;
    std::string name;
    std::function<Book(const std::filesystem::path& dictFolder)> make;
};

/// All samples, group by group.
std::vector<Sample> allSamples();

} // namespace velmarin
