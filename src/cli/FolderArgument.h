#pragma once

#include "cli/Session.h"
#include "files/FolderItem.h"
#include "store/Group.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The folder that an argument names. Raises CannotDo if it is missing, is not a folder, or cannot be listed.
FolderItem folderArgument(const std::string& argument);

/// Which folders a command works on, and its messages about the others.
struct FolderFilter {
    std::function<bool(const FolderItem&)> accepts;
    std::string note;    ///< about an argument that is passed over
    std::string refusal; ///< about the same argument if no folder is accepted
};

/// The accepted folders among `arguments`, in their order. A shell pattern such as "English/*" also names files and
/// other folders: these are passed over with a note, or are failures of the session if nothing else is named. What is
/// missing or cannot be listed is always a failure.
std::vector<FolderItem> folderArguments(const std::vector<std::string>& arguments, const FolderFilter& filter,
                                        Session& session);

/// Whether `folder` (links followed) is a dictionary, as opposed to a group that holds a dictionary called "ind" or
/// like another member: such a member does not count.
bool isDictionary(const FolderItem& folder);

/// The group that an argument names, read as a window reads it. A dictionary that cannot be opened is a failure of the
/// session, and the others are read. Raises CannotDo or NilObjectException if the group cannot be read, or if it is a
/// dictionary, a common slip.
ReadGroup groupArgument(const std::string& argument, Session& session);

} // namespace velmarin
