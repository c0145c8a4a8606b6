// install, update and export as velmarin-cli has them, without the rest of it.

#include "cli/Commands.h"
#include "cli/Operands.h"

#include <unistd.h>

int main(int argc, char** argv) {
    velmarin::Output out(STDOUT_FILENO);
    try {
        CLI::App options;
        velmarin::Job chosen;
        velmarin::addMaintenanceCommands(options, chosen);
        options.parse(velmarin::guardedArguments(argc, argv));
        velmarin::Session session(out);
        const velmarin::Status status = session.status(chosen(session));
        out.close();
        return static_cast<int>(status);
    } catch (const std::exception& error) {
        velmarin::complain(error.what());
        return static_cast<int>(velmarin::Status::CouldNot);
    }
}
