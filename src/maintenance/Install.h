#pragma once

#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

namespace velmarin {

/// Copies a dictionary, with all its members, into a group. It appears there in one step, when it is complete and
/// flushed to the disk, and never replaces anything but an empty folder. If the group has the identical dictionary,
/// nothing is done.
///
/// Links are copied as links, and relative ones are rewritten if needed, so that they lead to the same target. FIFOs
/// and devices are left out, each with a failure. If anything else cannot be copied, or a relative link leads nowhere,
/// nothing appears.
///
/// Waits while another run has locked the folder that holds the group (lockedFolderOf).
MaintenanceResult installDictionary(const FolderItem& dictionary, const FolderItem& group,
                                    const Progress& progress = {});

} // namespace velmarin
