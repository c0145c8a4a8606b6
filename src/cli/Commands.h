#pragma once

#include "cli/Session.h"

#include <functional>
#include <vector>

namespace CLI {
class App;
}

namespace velmarin {

/// What a parsed command line asks for.
using Job = std::function<Status(Session&)>;

/// A subcommand of velmarin-cli. Each has a source file of its own and a row in CommandLine.cpp.
struct Command {
    const char* name;
    const char* summary;
    const char* help; ///< shown after the options
    /// Adds the options and operands to `command`, and returns the job that runs when they are parsed. Null if there
    /// are parts.
    Job (*define)(CLI::App& command) = nullptr;
    std::vector<Command> parts{}; ///< subcommands of this one
};

/// Adds a command and its parts to `program`. Parsing the command sets `chosen`, which may be called while `program`
/// exists.
void addCommand(CLI::App& program, const Command& command, Job& chosen);

Command groupsCommand();
Command dictionariesCommand();
Command keyCommand();
Command searchCommand();
Command checkCommand();
Command installCommand();
Command updateCommand();
Command exportCommand();
Command makeCommand();
Command userDictionaryCommand();

} // namespace velmarin
