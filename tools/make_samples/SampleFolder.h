#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "make_samples/Catalogue.h"

namespace velmarin {

/// Makes `target`, a `DictionaryFolder` with all `samples` in their groups. Where it exists already and is not empty,
/// only those samples in it are made again that an earlier version of this program made, with page names that all
/// dictionaries shared; everything else in it is left alone. Returns whether anything was made.
///
/// All is made in a hidden folder beside `target`, which takes that name, or whose dictionaries take the places of the
/// old ones, at the very end; what an interrupted run left there is cleared first. `tell` gets the name of each
/// dictionary. At most `atOnce` are made at a time, each in a process of its own. Throws std::runtime_error where
/// something is missing or another run is at work.
bool makeSampleFolder(const std::filesystem::path& target, const std::filesystem::path& dictFolder,
                      const std::vector<Sample>& samples, std::size_t atOnce,
                      const std::function<void(const std::string&)>& tell);

} // namespace velmarin
