#include "controls/Artwork.h"
#include "platform/Desktop.h"
#include "platform/EndSignals.h"
#include "platform/QtHost.h"
#include "platform/QtText.h"
#include "shell/Application.h"
#include "store/UserPreferencesFolder.h"
#include "workshop/BookCommands.h"
#include "workshop/CorrectionWindow.h"
#include "workshop/WorkshopWindow.h"

#include <CLI/CLI.hpp>

#include <QTimer>

#include <filesystem>
#include <iostream>
#include <string>

namespace {

velmarin::FolderItem applicationFolder() {
    return velmarin::FolderItem(velmarin::fromQ(QCoreApplication::applicationDirPath()));
}

int correctDictionary(velmarin::Host& host, const std::filesystem::path& folder, const std::string& word) {
    velmarin::mFiMod_OpenThisModule();
    velmarin::CorrectionWindow window(host, velmarin::correctionsFolder(),
                                      velmarin::FolderItem(velmarin::desktopFolder()));
    if (const velmarin::Result opened = window.open(velmarin::FolderItem(folder), word); !opened) {
        host.MsgBox(opened.failure().message() + ".");
        return 2;
    }
    const velmarin::EndSignals endSignals([&window] { window.close(); });
    window.show();
    return velmarin::Application::exec();
}

} // namespace

int main(int argc, char** argv) {
    std::filesystem::path bookOrScan, dictionary;
    CLI::App options("Velmarin Workshop makes a dictionary of a scanned book.", "velmarin-workshop");
    options
        .add_option("BOOK", bookOrScan,
                    "The working folder of a book, or a scan: a folder of page images, a TIFF, PDF or DjVu file")
        ->option_text("[BOOK|SCAN]");
    options.add_option("--dictionary", dictionary, "Correct the dictionary in FOLDER, which is opened at a word")
        ->option_text("FOLDER [WORD]");
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
    if (!dictionary.empty())
        return correctDictionary(host, dictionary, bookOrScan.native());
    velmarin::WorkshopWindow window(host);
    velmarin::addBookCommands(window, host, applicationFolder());
    const velmarin::EndSignals endSignals([&window] { window.close(); });
    window.show();
    QTimer::singleShot(0, &window, [&window, &bookOrScan] {
        if (!bookOrScan.empty())
            window.open(bookOrScan);
    });
    return velmarin::Application::exec();
}
