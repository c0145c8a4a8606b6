#pragma once

#include "cli/Session.h"

#include <functional>

namespace CLI {
class App;
}

namespace velmarin {

/// What a parsed command line asks for.
using Job = std::function<Status(Session&)>;

// Each of these adds a subcommand with its help to `program`. Parsing the subcommand sets `chosen`, which must be
// called while `program` exists.

void addGroupsCommand(CLI::App& program, Job& chosen);
void addDictionariesCommand(CLI::App& program, Job& chosen);
void addKeyCommand(CLI::App& program, Job& chosen);
void addSearchCommand(CLI::App& program, Job& chosen);
void addCheckCommand(CLI::App& program, Job& chosen);
/// install, update and export.
void addMaintenanceCommands(CLI::App& program, Job& chosen);
/// user-dictionary build and user-dictionary search.
void addUserDictionaryCommand(CLI::App& program, Job& chosen);

} // namespace velmarin
