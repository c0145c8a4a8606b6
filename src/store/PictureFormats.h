#pragma once

#include <set>
#include <string>

namespace velmarin {

/// The set of picture extensions, in small letters without the point. Stands from the start, so that programs that
/// open no modules have it too.
extern std::set<std::string> pPictureExtensions;

} // namespace velmarin
