#pragma once

#include "cli/Session.h"
#include "files/Result.h"
#include "store/Group.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

inline constexpr const char* kEmptyFolderName = "an empty name is not a folder";
inline constexpr const char* kInterruptedUpdate = "an update was interrupted: run the update again";

/// The folder that an argument names. Returns nullopt, with a failure of the session, if it is missing, is not a
/// folder, or cannot be listed or entered.
std::optional<FolderItem> folderArgument(const std::string& argument, Session& session);

/// The same for the folder of a dictionary. Links are not followed.
std::optional<FolderItem> dictionaryArgument(const std::string& argument, Session& session);

/// Which folders a command works on, and its messages about the others.
struct FolderFilter {
    std::function<bool(const FolderItem&)> accepts;
    std::string note;    ///< about an argument that is passed over
    std::string refusal; ///< about the same argument if no folder is accepted
};

/// The accepted folders among `arguments`, in their order. A shell pattern such as "English/*" also names files and
/// other folders: these are passed over with a note, or are failures of the session if nothing else is named. What is
/// missing, or cannot be listed or entered, is always a failure.
std::vector<FolderItem> folderArguments(const std::vector<std::string>& arguments, const FolderFilter& filter,
                                        Session& session);

/// The visible folders in a group that are dictionaries or may be. The folder of the user dictionaries is left out: one
/// of these may be called "ind".
struct GroupFolders {
    std::vector<FolderItem> dictionaries; ///< with any member of a dictionary, even without FW
    Failures unreadable;                  ///< cannot be listed or entered, so they may be dictionaries
};
GroupFolders foldersIn(const FolderItem& group);

/// Whether `folder` (links followed) is a dictionary. If all members that make it one are folders, such as "ind" or
/// "mImg", and it holds a dictionary, it is a group with folders of these names.
bool isDictionary(const FolderItem& folder);

/// The group that an argument names, read as a window reads it. A note says which of its dictionaries an interrupted
/// update has left with members of two versions, or without some. A dictionary that cannot be opened, and a folder that
/// may be one but cannot be entered, is a failure of the session, and the others are read. Returns nullopt, with a
/// failure, if it is not a folder or is a dictionary, a common slip. Raises NilObjectException if its
/// preferences cannot be read.
std::optional<Group> groupArgument(const std::string& argument, Session& session);

} // namespace velmarin
