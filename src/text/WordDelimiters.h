#pragma once

#include <string>
#include <vector>

namespace velmarin {

/// The characters that delimit words, one per string. Empty until the module is opened. Search words keep these
/// characters.
extern std::vector<std::string> pWordDelimitersSet;

/// Fills `pWordDelimitersSet`.
void mDDmod_OpenThisModule();

} // namespace velmarin
