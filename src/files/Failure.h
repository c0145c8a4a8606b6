#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// What could not be done: the item that was to be read or written, and why, in plain words.
struct Failure {
    FolderItem item;
    std::string reason;
};

using Failures = std::vector<Failure>;

} // namespace velmarin
