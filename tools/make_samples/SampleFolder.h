#pragma once

#include <filesystem>
#include <vector>

#include "make_samples/Catalogue.h"

namespace velmarin {

/// Makes `target`, a `DictionaryFolder` with all `samples` in their groups, and prints the name of each that is
/// finished. Does nothing and returns false if `target` exists and is not empty.
///
/// It is made in a hidden folder beside `target` and gets its name when it is whole. What a killed run left there is
/// removed first. Throws std::runtime_error if something is missing or cannot be written; nothing is left then.
bool makeSampleFolder(const std::filesystem::path& target, const std::filesystem::path& dictFolder,
                      const std::vector<Sample>& samples);

} // namespace velmarin
