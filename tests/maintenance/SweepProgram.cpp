// install, update, export and user-dictionary of velmarin-cli; "keep SOURCE FOLDER BACKUPS": a user dictionary made as
// the side window makes it; "correct DICTIONARY CORRECTIONS BACKUPS": "make corrections --apply" with these folders;
// "make PAGES GROUP NAME": a dictionary of two pages, unless it is there.

#include "cli/Commands.h"
#include "cli/Operands.h"
#include "making/NewDictionary.h"
#include "side/UserDictionary.h"
#include "workshop/DictionaryCorrector.h"

#include <unistd.h>

namespace {

using namespace velmarin;

Job defineKeep(CLI::App& command) {
    const CLI::Option* folders = addManyOperands(command, "FOLDER", "SOURCE FOLDER BACKUPS");
    return [=](Session& session) {
        const auto paths = operands(folders);
        SilentProgress progress;
        const BuildResult result = buildUserDictionary(FolderItem(paths.at(0)), FolderItem(paths.at(1)), progress,
                                                       ExistingDictionary::BackUp, FolderItem(paths.at(2)));
        if (!result.ok)
            session.couldNot(result.reason);
        return Status::Done;
    };
}

Job defineCorrect(CLI::App& command) {
    const CLI::Option* folders = addManyOperands(command, "FOLDER", "DICTIONARY CORRECTIONS BACKUPS");
    return [=](Session& session) {
        const auto paths = operands(folders);
        DictionaryCorrector corrector;
        if (const Result opened =
                DictionaryCorrector::open(FolderItem(paths.at(0)), FolderItem(paths.at(1)), corrector);
            !opened) {
            session.couldNot(opened.failure());
            return Status::CouldNot;
        }
        const std::vector<Correction> due = corrector.due();
        for (const Correction& each : due)
            if (const Result made = corrector.correct(each); !made)
                session.couldNot(made.failure());
        for (const Failure& each : corrector.save(FolderItem(paths.at(2))).failures)
            session.couldNot(each);
        return Status::Done;
    };
}

Job defineMake(CLI::App& command) {
    const CLI::Option* words = addManyOperands(command, "WORD", "PAGES GROUP NAME");
    return [=](Session& session) {
        const auto paths = operands(words);
        const FolderItem group(paths.at(1));
        NewDictionary book{.pages = {{"p1.tif"}, {"p2.tif", "1"}},
                           .pageFolder = FolderItem(paths.at(0)),
                           .extraPageFolder = FolderItem(paths.at(0)),
                           .lines = {{"aa", "", 0}, {"bb", "", 1, {"e.tif"}}},
                           .about = {.title = "Two pages"}};
        const bool isThere = group.Child(paths.at(2)).Exists();
        const Result made = writeNewDictionary(book, group, paths.at(2));
        if (!made && !isThere)
            session.couldNot(made.failure());
        return Status::Done;
    };
}

} // namespace

int main(int argc, char** argv) {
    CLI::App options;
    Job chosen;
    const Command keep{.name = "keep", .summary = "", .help = "", .define = defineKeep};
    const Command correct{.name = "correct", .summary = "", .help = "", .define = defineCorrect};
    const Command make{.name = "make", .summary = "", .help = "", .define = defineMake};
    for (const Command& command :
         {installCommand(), updateCommand(), exportCommand(), userDictionaryCommand(), keep, correct, make})
        addCommand(options, command, chosen);
    options.parse(guardedArguments(argc, argv));
    Output out(STDOUT_FILENO);
    Session session(out);
    const Status status = session.status(chosen(session));
    return out.close() ? static_cast<int>(status) : 2;
}
