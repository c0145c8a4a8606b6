#pragma once

#include "files/FolderItem.h"
#include "shell/Commands.h"

#include <string>

namespace velmarin {

class BusyState;
class Host;
class PageImages;
class PreferenceWriter;
class WindowListPort;

/// What all main windows share. Everything referred to outlives them.
struct WindowServices {
    Host& host;
    BusyState& busy;
    PreferenceWriter& preferences;
    PageImages& pageImages;
    WindowListPort& windows;
    /// The commands that need no window.
    Commands commands;
    const FolderItem& pDictionaryFolder;
    const FolderItem& pThis_PreferencesFolder;
    /// The tool tip of every group pop-up.
    std::string& pSelectedDicTag;
};

} // namespace velmarin
