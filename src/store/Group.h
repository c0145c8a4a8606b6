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

/// Called on the thread that reads a group, after each dictionary and while the next one is read, with the number of
/// dictionaries that are read and of all. It can keep a window alive. False stops the reading.
using OnGroupProgress = std::function<bool(std::size_t done, std::size_t of)>;

/// How a group is to be read.
struct GroupReading {
    /// Whether the places of the lines of each `txt` are found too, so that the first search need not.
    bool findTxtLines = false;
    OnGroupProgress onProgress = {};
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
    /// Whether `onProgress` stopped the reading. Dictionaries may be missing then.
    bool stopped = false;
};

/// Reads a group. A folder that does not exist is made, with the message "Threre are no dictionaries.". The
/// dictionaries are read on all processor cores.
///
/// A dictionary is a folder with the mark `FW`, or a link to one, under the name that it has in the group: for a link,
/// the link's. Where two names lead to one folder it is listed once: under the name in the preferences file, else under
/// the folder's own name, else under the first link's.
///
/// Raises NilObjectException for a nil folder, and for one that cannot be listed or entered, instead of returning an
/// empty group.
Group readGroup(const FolderItem& group, const GroupReading& how = {});

} // namespace velmarin
