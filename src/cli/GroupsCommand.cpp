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

Status writeGroups(const std::string& argument, Session& session) {
    const auto groups = listGroups(folderArgument(argument));
    for (const GroupRow& group : groups)
        session.out().record({group.name});
    return groups.empty() ? Status::NothingFound : Status::Done;
}

} // namespace

void addGroupsCommand(CLI::App& program, Job& chosen) {
    static const std::string folderHelp = "The folder DictionaryFolder beside the program";
    CLI::App* command = program.add_subcommand("groups", "List the groups in DictionaryFolder");
    command->footer(kHelp);
    const CLI::Option* folder = command->add_option("FOLDER", folderHelp)->option_text(" ")->expected(1)->required();
    command->callback(
        [&chosen, folder] { chosen = [folder](Session& session) { return writeGroups(operand(folder), session); }; });
}

} // namespace velmarin
