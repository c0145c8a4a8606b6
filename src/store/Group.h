#pragma once

#include "files/FolderItem.h"
#include "store/DictionaryItem.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmarin {

using DictionaryList = std::vector<std::shared_ptr<DictionaryItem>>;

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
};

/// Reads a group. A folder that does not exist is made, with the message "Threre are no dictionaries.". `afterEach` is
/// called after each dictionary, so that a caller can keep its window alive.
///
/// A dictionary is a folder with the mark `FW`, or a link to one, under the name that it has in the group: for a link,
/// the link's. Where two names lead to one folder it is listed once: under the name in the preferences file, else under
/// the folder's own name, else under the first link's.
///
/// A nil folder, and one that cannot be listed or entered, raise NilObjectException: they are no group without
/// dictionaries.
Group readGroup(const FolderItem& group, const std::function<void()>& afterEach = {});

} // namespace velmarin
