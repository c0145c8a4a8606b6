#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "files/TreePlan.h"
#include "maintenance/Export.h"
#include "maintenance/Install.h"
#include "maintenance/Update.h"
#include "store/DictionaryItem.h"

#include <utility>

namespace velmarin {

namespace {

constexpr const char* kInstallHelp = R"help(Columns:
  1  "installed", or "already there" where the very same stands there
  2  the dictionary in the group

Copies the folder of a dictionary, links as links, into the folder of a group. It
appears there only when it is complete and on the disk, and replaces nothing: for
a new version of an installed dictionary there is the command update. What is
neither a file, a folder nor a link is left out and told of. After a run that was
ended half-way, the same command again completes it.

Exit status: 0 it is installed, 2 it is not, or not all of it.

Example:
  velmarin-cli install ~/Downloads/Latin DictionaryFolder/Languages)help";

constexpr const char* kUpdateHelp = R"help(Columns:
  1  "saved", a member that was replaced, where it is now; "replaced" or "added",
     a member of an installed dictionary
  2  its path

Brings the members of the folder of a dictionary into every dictionary of that
name, case and Unicode composition ignored, in the groups of DICTIONARYFOLDER;
links to dictionaries or groups are not followed. Members that only the installed
dictionary has stay, and so do hidden ones. What is replaced goes to a new folder for each dictionary in
BACKUPFOLDER, which is created if it is missing. ind, txt and mImg are replaced
only together, and if a disk is full the dictionary stays as it is. After a run
that was ended half-way, the same command again completes it.

While another install, update or export works on DICTIONARYFOLDER, the command
waits and says so.

Exit status: 0 all were updated, 1 no group holds such a dictionary, 2 not all
members could be replaced.

Example:
  velmarin-cli update ~/Downloads/Latin DictionaryFolder ~/Desktop)help";

constexpr const char* kExportHelp = R"help(Columns:
  1  "exported"; "already there" where the very same stands there; "skipped" where
     another item of that name does, or the dictionary has no FW
  2  the dictionary in FOLDER; of one that was skipped, its own path

Copies dictionaries into FOLDER as ones that stand by themselves: what links lead
to takes their place. Each appears there only when it is complete and on the
disk. Links that lead nowhere or in circles, and what is neither a file nor a
folder, are left out and told of. After a run that was ended half-way, the same
command again completes it.

Exit status: 0 all were exported, 1 some were skipped, 2 some could not be.

Example:
  velmarin-cli export --replace DictionaryFolder/English/* /media/stick)help";

FolderItem dictionaryArgument(const std::string& argument, Links links) {
    FolderItem folder = folderArgument(argument);
    if (links == Links::Followed)
        folder = folder.resolved();
    if (!mSub_DicOrNot(folder))
        throw CannotDo(argument + ": This is not a Dictionary !");
    return folder;
}

void write(const Record& record, Session& session) {
    for (const Record::Entry& each : record.deeds)
        session.out().record({deedInWords(each.deed), each.item.path().native()});
    for (const Failure& each : record.failures)
        session.couldNot(each.item.path().native() + ": " + each.reason);
}

/// Says once which folder the run waits for.
Progress sayWhatIsWaitedFor() {
    return [said = false](const WorkDone& done) mutable {
        if (!done.waitsFor.empty() && !std::exchange(said, true))
            complain(done.waitsFor.native() + ": waiting for another install, update or export to end");
    };
}

Status install(const std::string& dictionary, const std::string& group, Session& session) {
    write(installDictionary(dictionaryArgument(dictionary, Links::Kept), folderArgument(group), sayWhatIsWaitedFor()),
          session);
    return Status::Done;
}

Status update(const std::string& dictionary, const std::string& dictionaryFolder, const std::string& backups,
              Session& session) {
    const FolderItem newVersion = dictionaryArgument(dictionary, Links::Kept);
    const auto copies = installedCopies(folderArgument(dictionaryFolder), newVersion.Name());
    if (copies.empty())
        return Status::NothingFound;
    if (backups.empty())
        throw CannotDo("an empty name is no folder");
    write(updateDictionary(newVersion, copies, FolderItem(backups), sayWhatIsWaitedFor()), session);
    return Status::Done;
}

/// False where the dictionary was skipped.
bool exportOne(const FolderItem& dictionary, const FolderItem& destination, bool replace, Session& session) {
    Record record;
    exportDictionary(
        dictionary, destination, [replace](const std::string&) { return replace; }, sayWhatIsWaitedFor(), record);
    bool skipped = false;
    for (Record::Entry& each : record.deeds) {
        if (each.deed != Deed::Skipped)
            continue;
        const FolderItem there = destination.Child(dictionary.Name());
        if (sameAsExported(dictionary, there))
            each = {Deed::AlreadyThere, there};
        else
            skipped = true;
    }
    write(record, session);
    return !skipped;
}

Status exportAll(std::vector<std::string> arguments, bool replace, Session& session) {
    const FolderItem destination = folderArgument(arguments.back());
    arguments.pop_back();
    bool all = true;
    for (const std::string& argument : arguments) {
        try {
            const FolderItem dictionary = dictionaryArgument(argument, Links::Followed);
            all = exportOne(dictionary, destination, replace, session) && all;
        } catch (const CannotDo& error) {
            session.couldNot(error.what());
        }
    }
    return all ? Status::Done : Status::NothingFound;
}

const CLI::Option* addFolder(CLI::App& command, const std::string& name, const std::string& description) {
    return command.add_option(name, description)->option_text(" ")->expected(1)->required();
}

} // namespace

void addMaintenanceCommands(CLI::App& program, Job& chosen) {
    CLI::App* install_ = program.add_subcommand("install", "Copy a new dictionary into a group");
    install_->footer(kInstallHelp);
    const CLI::Option* newOne = addFolder(*install_, "DICTIONARY", "The folder of the dictionary");
    const CLI::Option* group = addFolder(*install_, "GROUP", "The folder of the group");
    install_->callback([&chosen, newOne, group] {
        chosen = [=](Session& session) { return install(operand(newOne), operand(group), session); };
    });

    CLI::App* update_ = program.add_subcommand("update", "Replace a dictionary in all groups by a new version");
    update_->footer(kUpdateHelp);
    const CLI::Option* newVersion = addFolder(*update_, "DICTIONARY", "The folder of the new version");
    const CLI::Option* dictionaryFolder =
        addFolder(*update_, "DICTIONARYFOLDER", "The folder DictionaryFolder that stands beside the program");
    const CLI::Option* backups = addFolder(*update_, "BACKUPFOLDER", "Where to save what is replaced");
    update_->callback([&chosen, newVersion, dictionaryFolder, backups] {
        chosen = [=](Session& session) {
            return update(operand(newVersion), operand(dictionaryFolder), operand(backups), session);
        };
    });

    CLI::App* export_ = program.add_subcommand("export", "Copy dictionaries out, each complete in itself");
    export_->footer(kExportHelp);
    const CLI::Option* replace =
        export_->add_flag("--replace")->option_text(" ")->description("Replace what stands in FOLDER already");
    const CLI::Option* items =
        addManyOperands(*export_, "DICTIONARY", "The folders of the dictionaries, then FOLDER, where they go")
            ->expected(2, CLI::detail::expected_max_vector_size)
            ->required();
    export_->callback([&chosen, replace, items] {
        chosen = [=](Session& session) { return exportAll(operands(items), replace->count() > 0, session); };
    });
}

} // namespace velmarin
