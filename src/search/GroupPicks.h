#pragma once

#include <map>
#include <string>
#include <vector>

namespace velmarin {

/// What a window's group pop-up answers: the row picked and its text. A window without a pick, a closed one included,
/// answers row -1, which is the row of no group.
struct WindowPick {
    int row = -1;
    std::string text;
};

/// Group rows in use by some main window: row to text.
using SelectedDicRows = std::map<int, std::string>;

/// The rows in use, from the picks of all windows in order of making.
SelectedDicRows rowsInUse(const std::vector<WindowPick>& picks);

/// The help tag of the group pop-ups: which of the rows 0 to rowCount - 1 cannot be picked, each name behind a CR.
/// Empty where all can.
std::string takenGroupsHelp(const SelectedDicRows& inUse, int rowCount);

/// From this many dictionaries on a group is shown as a list and not as tabs.
inline constexpr int kFewestForList = 22;

} // namespace velmarin
