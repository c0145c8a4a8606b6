#include "search/SelectedDic.h"

namespace velmarin {

SelectedDicRows rowsInUse(const std::vector<WindowPick>& picks) {
    SelectedDicRows rows;
    for (const WindowPick& pick : picks)
        rows[pick.row] = pick.text;
    return rows;
}

std::string takenGroupsHelp(const SelectedDicRows& inUse, int rowCount) {
    std::string names;
    for (const auto& [row, text] : inUse) {
        if (row < 0 || row >= rowCount)
            continue;
        if (!names.empty())
            names += '\r';
        names += text;
    }
    if (names.empty())
        return names;
    return "You cant select following items which are already selected: \r" + names;
}

} // namespace velmarin
