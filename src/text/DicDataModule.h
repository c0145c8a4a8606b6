#pragma once

#include <string>
#include <vector>

namespace velmarin {

/// The characters that delimit words, one a string; empty until the module is opened. A search word keeps them all.
extern std::vector<std::string> pWordDelimitersSet;

/// Fills `pWordDelimitersSet`.
void mDDmod_OpenThisModule();

} // namespace velmarin
