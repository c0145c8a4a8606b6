#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// Hidden names of what is being written and not whole yet, ".velmarin-<process>-<number>.tmp": each is new in this
/// run.
std::string newTemporaryName();
/// The hidden name of a folder that holds what is about to be replaced, under its own name:
/// ".velmarin-<process>-<number>.old".
std::string newSetAsideName();

/// Either kind.
bool isTemporaryName(std::string_view name);
bool isSetAsideName(std::string_view name);

} // namespace velmarin
