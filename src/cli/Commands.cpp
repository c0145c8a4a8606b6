#include "cli/Commands.h"

#include <CLI/CLI.hpp>

namespace velmarin {

void addCommand(CLI::App& program, const Command& command, Job& chosen) {
    CLI::App* added = program.add_subcommand(command.name, command.summary);
    added->footer(command.help);
    if (command.define)
        added->callback([&chosen, job = command.define(*added)] { chosen = job; });
    if (!command.parts.empty())
        added->require_subcommand(1);
    for (const Command& part : command.parts)
        addCommand(*added, part, chosen);
}

} // namespace velmarin
