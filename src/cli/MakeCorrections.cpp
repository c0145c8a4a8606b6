#include "cli/FolderArgument.h"
#include "cli/MaintenanceReport.h"
#include "cli/MakeParts.h"
#include "cli/Operands.h"
#include "files/Leftovers.h"
#include "store/UserPreferencesFolder.h"
#include "workshop/DictionaryCorrector.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  "due", "done" or "other"
  2  "page", "headword" or "missing": what was corrected
  3  the headword
  4  the page that it opens
  5  the wrong page or headword

Corrections that were made with velmarin-workshop are kept in the user's
preferences folder, in Selorin_SoftWare/Corrections/GROUP/DICTIONARY.tsv. A
correction is due if an update has brought the fault back, and "other" if the
dictionary has changed there otherwise.

With --apply those that are due are made again. The replaced ind and txt go to a
new folder in BACKUPFOLDER, as in an update, and are listed as there. It is
Selorin_SoftWare/Replaced unless --backups names another.

Exit status: 0 success, 1 corrections are due, 2 they could not be made.

Example:
  velmarin-cli make corrections --apply DictionaryFolder/English/Birds)help";

const char* standing(const Correction& each, const DictionaryCorrector& corrector, const std::vector<Correction>& due) {
    if (std::find(due.begin(), due.end(), each) != due.end())
        return "due";
    return isDone(each, corrector.text()) ? "done" : "other";
}

Status list(const DictionaryCorrector& corrector, const std::vector<Correction>& due, Session& session) {
    for (const Correction& each : corrector.kept())
        session.out().record({standing(each, corrector, due), nameOf(each.kind), each.headword, each.page, each.was});
    return due.empty() ? Status::Done : Status::NothingFound;
}

Status run(const std::string& folder, bool apply, const std::string& backups, Session& session) {
    const auto dictionary = dictionaryArgument(folder, session);
    if (!dictionary)
        return Status::CouldNot;
    mFiMod_OpenThisModule();
    DictionaryCorrector corrector;
    if (const Result opened = DictionaryCorrector::open(*dictionary, correctionsFolder(), corrector); !opened) {
        session.couldNot(opened.failure());
        return Status::CouldNot;
    }
    const std::vector<Correction> due = corrector.due();
    const bool interrupted = holdsLeftovers(dictionary->path()); // of a killed run, which saving moves to their backup
    if (!apply || (due.empty() && !interrupted))
        return list(corrector, due, session);
    for (const Correction& each : due)
        if (const Result made = corrector.correct(each); !made)
            session.couldNot(made.failure());
    const FolderItem kept = backups.empty() ? pFiMod_UserPrefContainer.Child("Replaced") : FolderItem(backups);
    report(corrector.save(kept, waitNotice()), session);
    return Status::Done;
}

Job define(CLI::App& command) {
    const CLI::Option* apply = addFlag(command, "--apply", "Make the corrections that are due");
    const CLI::Option* backups = addOption(command, "--backups", "BACKUPFOLDER", "The folder for what is replaced");
    const CLI::Option* folder = addOperand(command, "FOLDER", "The folder of the dictionary");
    return [=](Session& session) {
        return run(operand(folder), apply->count() > 0, backups->count() > 0 ? backups->as<std::string>() : "",
                   session);
    };
}

} // namespace

Command makeCorrectionsPart() {
    return {.name = "corrections",
            .summary = "List what was corrected in a dictionary, and correct it again",
            .help = kHelp,
            .define = define};
}

} // namespace velmarin
