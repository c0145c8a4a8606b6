#pragma once

#include "files/AtomicFile.h"
#include "files/FolderItem.h"
#include "store/DictionaryItem.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// A row of the group pop-up: the name as it stands in the folder (an alias's own), and the folder with aliases
/// followed.
struct GroupRow {
    std::string name;
    FolderItem folder;
};

/// The groups of a `DictionaryFolder` by name: every visible folder in it, aliases of folders included.
std::vector<GroupRow> listGroups(const FolderItem& dictionaryFolder);

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
/// Writes `DictionaryPreferences.txt` of a group. Once the order editor has saved, its lines `pNewDicPref` are written
/// in place of the preferences, whatever group it is. A nil folder, and one that is gone, are left alone. A file that
/// cannot be written but holds the same already is no failure.
WriteResult writeGroupPreferences(const FolderItem& group, const GroupPreferences& preferences,
                                  const std::vector<std::string>& pNewDicPref = {});

using DictionaryList = std::vector<std::shared_ptr<DictionaryItem>>;

/// A group as read from its folder.
struct ReadGroup {
    std::string groupName;
    bool separately = false;
    /// In display order: those of the preferences file (kept even where they fail to load), then the others by name
    /// (kept only where they load, with "Adjust by width").
    DictionaryList dictionaries;
    /// What MakeDictionaryItem raised, a line each: such a dictionary stays in the list, empty, where the preferences
    /// name it, so that it keeps its place; the others are read all the same.
    std::vector<std::string> failures;
};

/// Reads a group. A folder that does not exist is made, with the message "Threre are no dictionaries.". `afterEach` is
/// called after each dictionary, so that a caller can keep its window alive.
///
/// A dictionary is a folder with the mark `FW`, or a link to one, under the name that it has in the group: for a link,
/// the link's. Where two names lead to one folder it is listed once: under the name in the preferences file, else under
/// the folder's own name, else under the first link's.
///
/// A nil folder, one that cannot be listed or entered, and a preferences file that cannot be opened raise
/// NilObjectException: none of them is a group without dictionaries.
ReadGroup readGroup(const FolderItem& group, const std::function<void()>& afterEach = {});

/// The line of the file `MainWindow`: Left, Top, Width, Height, a TAB after each.
struct WindowPlacement {
    int left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};
/// Missing numbers are 0; nothing for a file that is missing or unreadable.
std::optional<WindowPlacement> readWindowPlacement(const FolderItem& preferencesFolder);
WriteResult writeWindowPlacement(const FolderItem& preferencesFolder, const WindowPlacement& placement);

} // namespace velmarin
