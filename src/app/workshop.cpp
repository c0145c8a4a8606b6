#include "controls/Artwork.h"
#include "platform/EndSignals.h"
#include "platform/QtHost.h"
#include "shell/Application.h"
#include "store/UserPreferencesFolder.h"
#include "workshop/WorkshopWindow.h"

#include <CLI/CLI.hpp>

#include <QTimer>

#include <filesystem>
#include <iostream>

int main(int argc, char** argv) {
    std::filesystem::path bookOrScan;
    CLI::App options("Velmarin Workshop makes a dictionary of a scanned book.", "velmarin-workshop");
    options
        .add_option("BOOK", bookOrScan,
                    "The working folder of a book, or a scan: a folder of page images, a TIFF, PDF or DjVu file")
        ->option_text("[BOOK|SCAN]");
    options.set_version_flag("--version", "velmarin-workshop " VELMARIN_VERSION);
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& failure) {
        return options.exit(failure) == 0 ? 0 : 2;
    }
    if (!velmarin::hasDisplay()) {
        std::cerr << "velmarin-workshop: there is no display. To make a dictionary without one: velmarin-cli make\n";
        return 2;
    }

    QCoreApplication::setApplicationName(QStringLiteral("Velmarin Workshop"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELMARIN_VERSION));
    velmarin::Application qt(argc, argv);
    velmarin::Application::setWindowIcon(velmarin::programIcon());
    velmarin::QtHost host;
    qt.setHost(&host);
    velmarin::mFiMod_OpenThisModule();
    velmarin::WorkshopWindow window(host);
    if (!velmarin::pFiMod_UserPrefContainer.isNil())
        window.rememberPlacement(velmarin::pFiMod_UserPrefContainer);
    const velmarin::EndSignals endSignals([&window] { window.close(); });
    window.show();
    QTimer::singleShot(0, &window, [&window, &bookOrScan] {
        if (!bookOrScan.empty())
            window.open(bookOrScan);
    });
    return velmarin::Application::exec();
}
