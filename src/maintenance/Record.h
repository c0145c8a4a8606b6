#pragma once

#include "files/Result.h"

#include <string>
#include <vector>

namespace velmarin {

enum class Deed {
    Installed,    ///< a new dictionary in a group
    Exported,     ///< a dictionary in a folder of the user's
    AlreadyThere, ///< it stands there byte for byte, as after a run that was ended in its very last step
    BackedUp,     ///< a member of an installed copy, now in the backup folder
    Replaced,     ///< a member of an installed copy, by that of the new version
    Added,        ///< a member that the installed copy did not have
    Skipped,      ///< left alone: no `FW`, or the user wants to keep what stands there
};

/// A word for it, as the command line writes it.
std::string deedInWords(Deed deed);

/// What a command has done, in order, and what it could not do.
struct Record {
    struct Entry {
        Deed deed;
        /// Where it stands now.
        FolderItem item;
    };
    std::vector<Entry> deeds;
    Failures failures;
};

/// One message that lists the failures with their reasons; empty where there is none. Items that were merely left out
/// of what was copied are among them.
std::string failureMessage(const Record& record);

} // namespace velmarin
