#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// `DictionaryPreferences.txt`, both as a window writes it (with modes) and as the order editor does (names alone).
struct GroupPreferences {
    struct Entry {
        std::string name;
        int ImageMode = 0;
    };
    std::string groupName;
    bool separately = false;
    std::vector<Entry> dictionaries;
};
GroupPreferences parseGroupPreferences(std::string_view text);
/// Line 1: name, TAB, "1" or "0", TAB. Then name, TAB, mode, a line each. LF ends.
std::string formatGroupPreferences(const GroupPreferences& preferences);
/// Raises NilObjectException if the file cannot be opened.
GroupPreferences readGroupPreferences(const FolderItem& file);
/// Writes `DictionaryPreferences.txt` of a group. Once the order editor has saved, its lines `pNewDicPref` are written
/// in place of the preferences, for any group. Does nothing for a nil folder and one that is gone. A file that
/// cannot be written but holds the same already is not a failure.
Result writeGroupPreferences(const FolderItem& group, const GroupPreferences& preferences,
                             const std::vector<std::string>& pNewDicPref = {});

} // namespace velmarin
