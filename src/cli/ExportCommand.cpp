#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/MaintenanceReport.h"
#include "cli/Operands.h"
#include "maintenance/Export.h"
#include "store/DictionaryMembers.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
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

/// False if the dictionary was skipped.
bool exportOne(const FolderItem& dictionary, const FolderItem& destination, bool replace, Session& session) {
    MaintenanceResult result = exportDictionary(
        dictionary, destination, [replace](const std::string&) { return replace; }, waitNotice());
    bool skipped = false;
    for (HandledItem& each : result.items) {
        if (each.outcome != ItemOutcome::Skipped)
            continue;
        const FolderItem existing = destination.Child(dictionary.Name());
        if (sameAsExported(dictionary, existing))
            each = {ItemOutcome::AlreadyThere, existing};
        else
            skipped = true;
    }
    report(result, session);
    return !skipped;
}

Status exportAll(std::vector<std::string> arguments, bool replace, Session& session) {
    const auto destination = folderArgument(arguments.back(), session);
    if (!destination)
        return Status::CouldNot;
    arguments.pop_back();
    const FolderFilter dictionaries = {
        .accepts = [](const FolderItem& folder) { return mSub_DicOrNot(folder.resolved()); },
        .note = "not a dictionary, passed over",
        .refusal = kNotADictionary};
    bool all = true;
    for (const FolderItem& dictionary : folderArguments(arguments, dictionaries, session))
        all = exportOne(dictionary.resolved(), *destination, replace, session) && all;
    return all ? Status::Done : Status::NothingFound;
}

Job define(CLI::App& command) {
    const CLI::Option* replace = addFlag(command, "--replace", "Replace what FOLDER already has");
    const CLI::Option* folders =
        addManyOperands(command, "DICTIONARY", "The folders of the dictionaries, then the target FOLDER")
            ->expected(2, CLI::detail::expected_max_vector_size)
            ->required();
    return [=](Session& session) { return exportAll(operands(folders), replace->count() > 0, session); };
}

} // namespace

Command exportCommand() {
    return {.name = "export", .summary = "Copy dictionaries to a folder", .help = kHelp, .define = define};
}

} // namespace velmarin
