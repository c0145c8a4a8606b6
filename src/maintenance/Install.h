#pragma once

#include "files/Work.h"
#include "maintenance/Record.h"

namespace velmarin {

/// Brings a dictionary, with all its members, into a group. It appears there, flushed to the disk, only when all of it
/// has arrived, and never takes the place of anything but an empty folder. Where it stands there already, byte for
/// byte, nothing is done.
///
/// Links are copied as links. What no copy can hold (FIFOs, devices) is left out and is among the failures; anything
/// else that cannot be copied keeps the dictionary from appearing.
Record installDictionary(const FolderItem& dictionary, const FolderItem& group, const Progress& progress = {});

} // namespace velmarin
