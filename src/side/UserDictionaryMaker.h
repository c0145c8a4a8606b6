#pragma once

#include "files/FolderItem.h"

namespace velmarin {

class BusyState;
class Host;
class MainWindowPort;

/// The dialog in which a user makes a user dictionary: it asks for the data and for a folder, builds, and opens the
/// folder of the group. Progress is shown in the main window's search field and progress bar, a failure in a message. A
/// user dictionary that the folder already holds is moved to a new folder in `desktop`.
void makeUserDictionaryByDialog(const FolderItem& groupFolder, MainWindowPort& mainWindow, Host& host, BusyState& busy,
                                const FolderItem& desktop);

} // namespace velmarin
