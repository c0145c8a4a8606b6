#pragma once

#include "cli/Session.h"

#include <functional>

namespace CLI {
class App;
}

namespace velmarin {

/// What a command line asks for, once it has been understood.
using Job = std::function<Status(Session&)>;

// Each of these adds a subcommand with its help to `program`. When the subcommand has been parsed, `chosen` is what it
// was asked to do; it is called while `program` still stands.

void addGroupsCommand(CLI::App& program, Job& chosen);
void addDictionariesCommand(CLI::App& program, Job& chosen);
void addKeyCommand(CLI::App& program, Job& chosen);
void addSearchCommand(CLI::App& program, Job& chosen);
void addCheckCommand(CLI::App& program, Job& chosen);
/// install, update and export.
void addMaintenanceCommands(CLI::App& program, Job& chosen);
/// user-dictionary, with its own build and search.
void addUserDictionaryCommand(CLI::App& program, Job& chosen);

} // namespace velmarin
