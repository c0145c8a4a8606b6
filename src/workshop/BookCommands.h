#pragma once

#include "files/FolderItem.h"

#include <string>

namespace velmarin {

class Host;
class WorkshopDesk;
class WorkshopWindow;

/// Adds "Try it…" and "Make dictionary…" to the menu of the book. `applicationFolder` has the dictionaries of Velmarin
/// and Velmarin itself, which is started with each dictionary that was made.
void addBookCommands(WorkshopWindow& window, Host& host, const FolderItem& applicationFolder);

/// Opens "Try it" with a word.
void tryWord(WorkshopDesk& desk, Host& host, const std::string& word);
/// Opens "Make dictionary". Does nothing if the book is not that of a scan.
void makeDictionary(WorkshopDesk& desk, Host& host, const FolderItem& applicationFolder);

} // namespace velmarin
