#pragma once

#include "files/FolderItem.h"
#include "platform/Host.h"

namespace velmarin {

class BusyState;
class MainWindowLink;

/// The dialogue by which a user makes a user dictionary: asks for the data and for a folder, builds, and shows where
/// the dictionary is to be put. How far it is shows in the main window's search field and progress bar. What fails is
/// told.
void makeUserDictionaryByDialogue(const FolderItem& groupFolder, MainWindowLink& mainWindow, Host& host,
                                  BusyState& busy);

} // namespace velmarin
