#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/MaintenanceReport.h"
#include "cli/Operands.h"
#include "maintenance/Update.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  "saved" (an old member), "replaced" or "added" (a member of an installed
     dictionary)
  2  its path; of an old member, the path in BACKUPFOLDER

Copies the members of a dictionary into every installed dictionary of that name
in the groups of DICTIONARYFOLDER. Case and Unicode composition are ignored, and
links to dictionaries or groups are not followed. Hidden members, and members that
only the installed dictionary has, are kept. The replaced members go to a new
folder for each dictionary in BACKUPFOLDER, which is created if it is missing.
ind, txt and mImg are replaced only together, and if a disk is full the dictionary
stays as it is. If a run was interrupted, run the same command again.

While another install, update or export works on DICTIONARYFOLDER, the command
waits and says so.

Exit status: 0 success, 1 no group has this dictionary, 2 some members could not
be replaced.

Example:
  velmarin-cli update ~/Downloads/Latin DictionaryFolder ~/Desktop)help";

Status update(const std::string& dictionary, const std::string& dictionaryFolder, const std::string& backups,
              Session& session) {
    const auto newVersion = dictionaryArgument(dictionary, session);
    const auto groups = newVersion ? folderArgument(dictionaryFolder, session) : std::nullopt;
    if (!groups)
        return Status::CouldNot;
    const auto [copies, unreadable] = installedCopies(*groups, newVersion->Name());
    for (const Failure& each : unreadable)
        session.couldNot(each);
    if (copies.empty())
        return Status::NothingFound;
    if (backups.empty()) {
        session.couldNot(kEmptyFolderName);
        return Status::CouldNot;
    }
    report(updateDictionary(*newVersion, copies, FolderItem(backups), waitNotice()), session);
    return Status::Done;
}

Job define(CLI::App& command) {
    const CLI::Option* dictionary = addOperand(command, "DICTIONARY", "The folder of the new version");
    const CLI::Option* dictionaryFolder =
        addOperand(command, "DICTIONARYFOLDER", "The folder DictionaryFolder beside the program");
    const CLI::Option* backups = addOperand(command, "BACKUPFOLDER", "The folder for the replaced members");
    return [=](Session& session) {
        return update(operand(dictionary), operand(dictionaryFolder), operand(backups), session);
    };
}

} // namespace

Command updateCommand() {
    return {.name = "update",
            .summary = "Update a dictionary in all groups to a new version",
            .help = kHelp,
            .define = define};
}

} // namespace velmarin
