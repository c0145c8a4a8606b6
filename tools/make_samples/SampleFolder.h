#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "make_samples/Catalogue.h"

namespace velmarin {

/// Makes `target`, a `DictionaryFolder` with all `samples` in their groups, and returns true; false where it is there
/// already (a folder with anything in it is left alone). Everything is made in a hidden folder beside it, which takes
/// the name `target` at the very end; what an interrupted run left there is cleared first. `tell` gets a line for each
/// dictionary. Throws std::runtime_error where something is missing or another run is at work.
bool makeSampleFolder(const std::filesystem::path& target, const std::filesystem::path& dictFolder,
                      const std::vector<Sample>& samples, unsigned threads,
                      const std::function<void(const std::string&)>& tell);

} // namespace velmarin
