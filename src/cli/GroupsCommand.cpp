#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "store/GroupList.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the name of the group, as the pop-up of a window shows it

A group is a visible folder in FOLDER, or a link to a folder. The groups are
sorted by name. FOLDER/NAME is the GROUP argument of the other commands.

Exit status: 0 success, 1 no groups, 2 FOLDER cannot be read.

Example:
  velmarin-cli groups DictionaryFolder)help";

Job define(CLI::App& command) {
    const CLI::Option* folder = addOperand(command, "FOLDER", "The folder DictionaryFolder beside the program");
    return [=](Session& session) {
        const auto dictionaryFolder = folderArgument(operand(folder), session);
        if (!dictionaryFolder)
            return Status::CouldNot;
        const auto groups = listGroups(*dictionaryFolder);
        for (const GroupRow& group : groups)
            session.out().record({group.name});
        return groups.empty() ? Status::NothingFound : Status::Done;
    };
}

} // namespace

Command groupsCommand() {
    return {.name = "groups", .summary = "List the groups in DictionaryFolder", .help = kHelp, .define = define};
}

} // namespace velmarin
