// install, update, export and user-dictionary as velmarin-cli has them, without the rest of it, and
// "keep SOURCE FOLDER BACKUPS": a user dictionary made as the side window makes it.

#include "cli/Commands.h"
#include "cli/Operands.h"
#include "side/UserDictionary.h"

#include <unistd.h>

namespace {

using namespace velmarin;

Status keep(char** argv) {
    SilentProgress progress;
    const BuildResult result = buildUserDictionary(FolderItem(argv[2]), FolderItem(argv[3]), progress,
                                                   EarlierPair::Saved, FolderItem(argv[4]));
    if (!result.ok)
        throw CannotDo(result.reason);
    return Status::Done;
}

} // namespace

int main(int argc, char** argv) {
    Output out(STDOUT_FILENO);
    try {
        if (argc == 5 && std::string_view(argv[1]) == "keep")
            return static_cast<int>(keep(argv));
        CLI::App options;
        Job chosen;
        addMaintenanceCommands(options, chosen);
        addUserDictionaryCommand(options, chosen);
        options.parse(guardedArguments(argc, argv));
        Session session(out);
        const Status status = session.status(chosen(session));
        out.close();
        return static_cast<int>(status);
    } catch (const std::exception& error) {
        complain(error.what());
        return static_cast<int>(Status::CouldNot);
    }
}
