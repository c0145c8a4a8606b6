#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// Hidden names of what is being written and not whole yet, ".velmarin-<process>-<number>.tmp": each is new in this
/// run.
std::string newTemporaryName();
bool isTemporaryName(std::string_view name);

} // namespace velmarin
