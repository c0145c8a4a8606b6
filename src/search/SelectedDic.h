#pragma once

#include <map>
#include <string>
#include <vector>

namespace velmarin {

/// The state of a window's group pop-up: the picked row and its text. A window without a pick, a closed one included,
/// has row -1, which is the row of no group.
struct WindowPick {
    int row = -1;
    std::string text;
};

/// The group rows that some main window shows: row to text.
using SelectedDicRows = std::map<int, std::string>;

/// The rows in use, from the picks of all windows in order of making.
SelectedDicRows rowsInUse(const std::vector<WindowPick>& picks);

/// The tool tip of the group pop-ups: which of the rows 0 to rowCount - 1 cannot be picked, with a CR before each name.
/// Empty if every row can be picked.
std::string takenGroupsHelp(const SelectedDicRows& inUse, int rowCount);

} // namespace velmarin
