#pragma once

#include "files/FolderItem.h"
#include "store/DictionaryItem.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmarin {

using DictionaryList = std::vector<std::shared_ptr<DictionaryItem>>;

/// How a group is to be read.
struct GroupReading {
    /// Whether the places of the lines of each `txt` are found too, so that the first search need not.
    bool findTxtLines = false;
    /// Called from the calling thread after each dictionary, and while the next is being read, with the number of
    /// dictionaries that are done and that of all. It can keep a window alive. False stops the reading.
    std::function<bool(std::size_t done, std::size_t of)> goesOn = {};
};

/// A group as read from its folder.
struct Group {
    std::string groupName;
    bool separately = false;
    /// In display order: those of the preferences file (kept even if they fail to load), then the others by name
    /// (kept only if they load, with "Adjust by width").
    DictionaryList dictionaries;
    /// What could not be read, with its name and the reason: dictionaries, folders that may be dictionaries, and the
    /// preferences. A dictionary that the preferences name stays in the list, empty, so that it keeps its place.
    std::vector<std::string> failures;
    /// False if there are preferences that could not be read: they must not be written back.
    bool preferencesRead = true;
    /// Whether the reading was stopped, so that not all dictionaries are there.
    bool stopped = false;
};

/// Reads a group. A folder that does not exist is made, with the message "Threre are no dictionaries.". The
/// dictionaries are read on all processor cores.
///
/// A dictionary is a folder with the mark `FW`, or a link to one, under the name that it has in the group: for a link,
/// the link's. Where two names lead to one folder it is listed once: under the name in the preferences file, else under
/// the folder's own name, else under the first link's.
///
/// A nil folder, and one that cannot be listed or entered, raise NilObjectException: they are no group without
/// dictionaries.
Group readGroup(const FolderItem& group, const GroupReading& how = {});

} // namespace velmarin
