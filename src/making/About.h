#pragma once

#include <string>

namespace velmarin {

/// What a dictionary says of itself. Each part may be empty.
struct About {
    std::string title = {}, edition = {}, year = {}, language = {}, source = {}, rights = {};

    friend bool operator==(const About&, const About&) = default;
};

/// The text of the member `About` (docs/dictionary-format.md): a line "Title: ..." for each part that is not empty, in
/// this order. A line end or TAB in a part becomes a blank.
std::string aboutText(const About& about);

} // namespace velmarin
