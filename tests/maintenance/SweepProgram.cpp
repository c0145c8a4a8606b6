// install, update, export and user-dictionary of velmarin-cli, and "keep SOURCE FOLDER BACKUPS": a user dictionary made
// as the side window makes it.

#include "cli/Commands.h"
#include "cli/Operands.h"
#include "side/UserDictionary.h"

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

} // namespace

int main(int argc, char** argv) {
    CLI::App options;
    Job chosen;
    const Command keep{.name = "keep", .summary = "", .help = "", .define = defineKeep};
    for (const Command& command : {installCommand(), updateCommand(), exportCommand(), userDictionaryCommand(), keep})
        addCommand(options, command, chosen);
    options.parse(guardedArguments(argc, argv));
    Output out(STDOUT_FILENO);
    Session session(out);
    const Status status = session.status(chosen(session));
    return out.close() ? static_cast<int>(status) : 2;
}
