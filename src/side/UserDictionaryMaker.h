#pragma once

#include "files/FolderItem.h"
#include "platform/Desktop.h"
#include "platform/Host.h"

namespace velmarin {

class BusyState;
class MainWindowPort;

/// The dialogue by which a user makes a user dictionary: asks for the data and for a folder, builds, and shows where
/// the dictionary is to be put. Progress shows in the main window's search field and progress bar, failures in a
/// message. Where the folder already holds a user dictionary, that one goes to a new folder on the desktop.
void makeUserDictionaryByDialogue(const FolderItem& groupFolder, MainWindowPort& mainWindow, Host& host,
                                  BusyState& busy, const FolderItem& desktop = FolderItem(desktopFolder()));

} // namespace velmarin
