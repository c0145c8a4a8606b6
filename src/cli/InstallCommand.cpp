#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/MaintenanceReport.h"
#include "cli/Operands.h"
#include "maintenance/Install.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  "installed", or "already there" if the group has the identical dictionary
  2  the dictionary in the group

Copies the folder of a dictionary into the folder of a group. Links are copied as
links. The dictionary appears there only when it is complete and on the disk.
Nothing is replaced: use update for a new version of an installed dictionary.
Anything but files, folders and links is left out and reported. If a run was
interrupted, run the same command again.

Exit status: 0 success, 2 failure, at least in part.

Example:
  velmarin-cli install ~/Downloads/Latin DictionaryFolder/Languages)help";

Job define(CLI::App& command) {
    const CLI::Option* dictionary = addOperand(command, "DICTIONARY", "The folder of the dictionary");
    const CLI::Option* group = addOperand(command, "GROUP", "The folder of the group");
    return [=](Session& session) {
        const auto newOne = dictionaryArgument(operand(dictionary), session);
        const auto target = newOne ? folderArgument(operand(group), session) : std::nullopt;
        if (!target)
            return Status::CouldNot;
        report(installDictionary(*newOne, *target, waitNotice()), session);
        return Status::Done;
    };
}

} // namespace

Command installCommand() {
    return {.name = "install", .summary = "Copy a new dictionary into a group", .help = kHelp, .define = define};
}

} // namespace velmarin
