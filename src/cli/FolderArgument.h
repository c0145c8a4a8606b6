#pragma once

#include "cli/Session.h"
#include "files/FolderItem.h"
#include "store/Group.h"

#include <string>

namespace velmarin {

/// The folder that an argument names. One that is missing, no folder, or cannot be listed raises CannotDo: the command
/// line makes no folders.
FolderItem folderArgument(const std::string& argument);

/// The group that an argument names, read as a window reads it. A dictionary that cannot be opened is told of, and the
/// others are read. A group that cannot be read raises CannotDo or NilObjectException, and so does a dictionary, which
/// is easily given in place of its group.
ReadGroup groupArgument(const std::string& argument, Session& session);

} // namespace velmarin
