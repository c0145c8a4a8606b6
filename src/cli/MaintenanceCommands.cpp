#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "files/TreePlan.h"
#include "maintenance/Export.h"
#include "maintenance/Install.h"
#include "maintenance/Update.h"
#include "store/DictionaryMembers.h"

#include <utility>

namespace velmarin {

namespace {

constexpr const char* kInstallHelp = R"help(Columns:
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

constexpr const char* kUpdateHelp = R"help(Columns:
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

constexpr const char* kExportHelp = R"help(Columns:
  1  "exported"; "already there" if FOLDER has the identical dictionary; "skipped"
     if FOLDER has something else of that name, or the dictionary has no FW
  2  the dictionary in FOLDER; if skipped, the path of the source

Copies dictionaries into FOLDER. Links are replaced by what they point to, so each
copy is complete in itself. It appears only when it is complete and on the disk.
Links that point nowhere or in a circle, and anything but files and folders, are
left out and reported. Names that are not dictionaries are passed over with a
note, so that patterns such as English/* work. If a run was interrupted, run the
same command again.

Exit status: 0 success, 1 some were skipped, 2 some could not be exported.

Example:
  velmarin-cli export --replace DictionaryFolder/English/* /media/stick)help";

constexpr const char* kNotADictionary = "This is not a Dictionary !";

FolderItem dictionaryArgument(const std::string& argument) {
    FolderItem folder = folderArgument(argument);
    if (!mSub_DicOrNot(folder))
        throw CannotDo(argument + ": " + kNotADictionary);
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
    write(installDictionary(dictionaryArgument(dictionary), folderArgument(group), sayWhatIsWaitedFor()), session);
    return Status::Done;
}

Status update(const std::string& dictionary, const std::string& dictionaryFolder, const std::string& backups,
              Session& session) {
    const FolderItem newVersion = dictionaryArgument(dictionary);
    const auto copies = installedCopies(folderArgument(dictionaryFolder), newVersion.Name());
    if (copies.empty())
        return Status::NothingFound;
    if (backups.empty())
        throw CannotDo("an empty name is not a folder");
    write(updateDictionary(newVersion, copies, FolderItem(backups), sayWhatIsWaitedFor()), session);
    return Status::Done;
}

/// False if the dictionary was skipped.
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
    const FolderFilter dictionaries = {
        .accepts = [](const FolderItem& folder) { return mSub_DicOrNot(folder.resolved()); },
        .note = "not a dictionary, passed over",
        .refusal = kNotADictionary};
    bool all = true;
    for (const FolderItem& dictionary : folderArguments(arguments, dictionaries, session))
        all = exportOne(dictionary.resolved(), destination, replace, session) && all;
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

    CLI::App* update_ = program.add_subcommand("update", "Update a dictionary in all groups to a new version");
    update_->footer(kUpdateHelp);
    const CLI::Option* newVersion = addFolder(*update_, "DICTIONARY", "The folder of the new version");
    const CLI::Option* dictionaryFolder =
        addFolder(*update_, "DICTIONARYFOLDER", "The folder DictionaryFolder beside the program");
    const CLI::Option* backups = addFolder(*update_, "BACKUPFOLDER", "The folder for the replaced members");
    update_->callback([&chosen, newVersion, dictionaryFolder, backups] {
        chosen = [=](Session& session) {
            return update(operand(newVersion), operand(dictionaryFolder), operand(backups), session);
        };
    });

    CLI::App* export_ = program.add_subcommand("export", "Copy dictionaries to a folder");
    export_->footer(kExportHelp);
    const CLI::Option* replace =
        export_->add_flag("--replace")->option_text(" ")->description("Replace what FOLDER already has");
    const CLI::Option* items =
        addManyOperands(*export_, "DICTIONARY", "The folders of the dictionaries, then the target FOLDER")
            ->expected(2, CLI::detail::expected_max_vector_size)
            ->required();
    export_->callback([&chosen, replace, items] {
        chosen = [=](Session& session) { return exportAll(operands(items), replace->count() > 0, session); };
    });
}

} // namespace velmarin
