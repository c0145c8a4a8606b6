#pragma once

#include <string_view>

namespace velmarin {

/// Whether `name` is one of the standard items of the menu "Edit".
bool isEditCommand(std::string_view name);

/// Does what an item of the menu "Edit" says to the text field that has the focus; nothing where none has.
void runEditCommand(std::string_view name);

} // namespace velmarin
