#pragma once

#include "files/Work.h"
#include "maintenance/Record.h"

namespace velmarin {

/// Brings a dictionary, with all its members, into a group. It appears there, flushed to the disk, only when all of it
/// has arrived, and never takes the place of anything but an empty folder. Where it stands there already, byte for
/// byte, nothing is done.
///
/// Links are copied as links. What no copy can hold (FIFOs, devices) is left out and is among the failures; anything
/// else that cannot be copied keeps the dictionary from appearing, and so does a relative link that leads nowhere;
/// others are rewritten where needed, so that they lead to the same.
///
/// Waits while another run works on the folder that holds the group (maintenance/DictionaryFolder.h).
Record installDictionary(const FolderItem& dictionary, const FolderItem& group, const Progress& progress = {});

} // namespace velmarin
