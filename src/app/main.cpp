#include "controls/Artwork.h"
#include "files/FolderItem.h"
#include "platform/DisplayGuard.h"
#include "platform/EndSignals.h"
#include "platform/QtHost.h"
#include "platform/QtText.h"
#include "shell/App.h"
#include "shell/Application.h"
#include "shell/StartRequest.h"

#include <CLI/CLI.hpp>

#include <QTimer>

#include <iostream>
#include <memory>

int main(int argc, char** argv) {
    velmarin::StartRequest request;
    CLI::App options("Velmarin finds a word in scanned dictionaries and shows the page it is on.", "velmarin");
    options.add_option("--group", request.group, "Open this group")->option_text("NAME");
    options.add_option("--picture", request.pictureFile, "Save a picture of the window to this file and exit")
        ->option_text("FILE");
    options.add_option("WORD", request.word, "Search the group for this word");
    options.set_version_flag("--version", "velmarin " VELMARIN_VERSION);
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& failure) {
        return options.exit(failure) == 0 ? 0 : 2;
    }
    if (!velmarin::hasDisplay()) {
        std::cerr << "velmarin: there is no display. To save a picture without one: ./run --picture FILE [--group "
                     "NAME] [WORD]\n";
        return 2;
    }

    QCoreApplication::setApplicationName(QStringLiteral("Velmarin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELMARIN_VERSION));
    auto opening = std::make_unique<velmarin::DisplayGuard>("velmarin");
    velmarin::Application qt(argc, argv);
    opening.reset();
    velmarin::Application::setWindowIcon(velmarin::programIcon());
    std::unique_ptr<velmarin::Host> host;
    if (request.pictureFile.empty())
        host = std::make_unique<velmarin::QtHost>();
    else
        host = std::make_unique<velmarin::UnwatchedHost>();
    qt.setHost(host.get());
    velmarin::App app(*host, velmarin::FolderItem(velmarin::fromQ(QCoreApplication::applicationDirPath())),
                      VELMARIN_VERSION);
    const velmarin::EndSignals endSignals([&app] { app.quit(); });
    QTimer::singleShot(0, &app, [&app, &request] {
        app.Event_Open();
        if (app.windows().count() > 0)
            velmarin::runStartRequest(app.windows().window(0), request);
    });
    return velmarin::Application::exec();
}
