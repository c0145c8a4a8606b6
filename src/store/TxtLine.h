#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The markup of a txt line. All other text on the line is ignored.
struct TxtLine {
    /// The name in the first "<@_name_>"; empty if there is none.
    std::string imageName;
    /// The names in "<^_name_>". Each marker is removed before the next search, so removal can form a new one.
    std::vector<std::string> errata;
};

/// Reads the markup of one line in linear time. A name is what "<@_(.+?)_>" or "<\^_(.+?)_>" captures.
TxtLine parseTxtLine(std::string_view line);

/// The line with `page` in its page mark. One without a mark gets it at its start. The rest stays as it is.
std::string withPage(std::string_view line, std::string_view page);

} // namespace velmarin
