#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the group's name, as the pop-up of a window shows it

A group is a visible folder in FOLDER; a link to a folder is one too. They come
by name. FOLDER/NAME is what the other commands take as their GROUP.

Exit status: 0 groups were listed, 1 there are none, 2 FOLDER cannot be read.

Example:
  velmarin-cli groups DictionaryFolder)help";

Status listGroupsOf(const std::string& argument, Session& session) {
    const auto groups = listGroups(folderArgument(argument));
    for (const GroupRow& group : groups)
        session.out().record({group.name});
    return groups.empty() ? Status::NothingFound : Status::Done;
}

} // namespace

void addGroupsCommand(CLI::App& program, Job& chosen) {
    static const std::string folderHelp = "The folder DictionaryFolder that stands beside the program";
    CLI::App* command = program.add_subcommand("groups", "List the groups of a folder of dictionaries");
    command->footer(kHelp);
    const CLI::Option* folder = command->add_option("FOLDER", folderHelp)->option_text(" ")->expected(1)->required();
    command->callback(
        [&chosen, folder] { chosen = [folder](Session& session) { return listGroupsOf(operand(folder), session); }; });
}

} // namespace velmarin
