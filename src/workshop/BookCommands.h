#pragma once

#include "files/FolderItem.h"

#include <string>

namespace velmarin {

class Host;
class WorkshopWindow;

/// Adds "Try it…" and "Make dictionary…" to the menu of the book. `applicationFolder` has the dictionaries of Velmarin
/// and Velmarin itself, which is started with each dictionary that was made.
void addBookCommands(WorkshopWindow& window, Host& host, const FolderItem& applicationFolder);

} // namespace velmarin
