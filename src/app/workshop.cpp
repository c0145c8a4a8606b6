#include "controls/Artwork.h"
#include "platform/Desktop.h"
#include "platform/DisplayGuard.h"
#include "platform/EndSignals.h"
#include "platform/ImageFile.h"
#include "platform/QtHost.h"
#include "platform/QtText.h"
#include "scan/OpenScan.h"
#include "shell/Application.h"
#include "store/UserPreferencesFolder.h"
#include "workshop/BookCommands.h"
#include "workshop/CorrectionWindow.h"
#include "workshop/ReadingControl.h"
#include "workshop/WorkshopWindow.h"

#include <CLI/CLI.hpp>

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

namespace {

struct Request {
    std::filesystem::path bookOrScan{}, dictionary{};
    std::string word{}; ///< of "Try it"
    bool make = false;
    std::string picture{};
};

velmarin::FolderItem applicationFolder() {
    return velmarin::FolderItem(velmarin::fromQ(QCoreApplication::applicationDirPath()));
}

/// The window in front: a dialog or pane, or else the main one.
QWidget* frontWindow() {
    QWidget* front = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && (front == nullptr || each->parentWidget() != nullptr))
            front = each;
    return front;
}

/// Saves a picture of the window in front once it no longer changes, and ends the program. Pages are decoded in the
/// background.
void savePicture(const std::string& file, const QImage& before = {}) {
    constexpr std::chrono::milliseconds kBetweenLooks{400};
    QTimer::singleShot(kBetweenLooks, qApp, [file, before] {
        QWidget* window = frontWindow();
        const QImage now = window != nullptr ? window->grab().toImage() : QImage();
        if (now.isNull() || now != before)
            return savePicture(file, now);
        const velmarin::Result saved = velmarin::saveImage(now, file);
        if (!saved)
            std::cerr << "velmarin-workshop: " << saved.failure().message() << '\n';
        QCoreApplication::exit(saved ? 0 : 2);
    });
}

void addOptions(CLI::App& options, Request& request) {
    options
        .add_option("BOOK", request.bookOrScan,
                    "The working folder of a book, or a scan: a folder of page images, " + velmarin::kScanFileKinds)
        ->option_text("[BOOK|SCAN]");
    options
        .add_option("--dictionary", request.dictionary, "Correct the dictionary in FOLDER, which is opened at a word")
        ->option_text("FOLDER [WORD]");
    options.add_option("--try", request.word, "Open \"Try it\" with this word")->option_text("WORD");
    options.add_flag("--make", request.make, "Open \"Make dictionary\"");
    options.add_option("--picture", request.picture, "Save a picture of the window to this file and exit")
        ->option_text("FILE");
    options.set_version_flag("--version", "velmarin-workshop " VELMARIN_VERSION);
}

/// Null, after a message, if the dictionary cannot be opened.
std::unique_ptr<velmarin::CorrectionWindow>
openDictionary(velmarin::Host& host, const std::filesystem::path& dictionary, const std::string& word) {
    auto window = std::make_unique<velmarin::CorrectionWindow>(host, velmarin::correctionsFolder(),
                                                               velmarin::FolderItem(velmarin::desktopFolder()));
    const velmarin::Result opened = window->open(velmarin::FolderItem(dictionary), word);
    if (!opened) {
        host.MsgBox(opened.failure().message() + ".");
        return nullptr;
    }
    window->show();
    return window;
}

int correctDictionary(velmarin::Host& host, const Request& request) {
    const auto window = openDictionary(host, request.dictionary, request.bookOrScan.native());
    if (window == nullptr)
        return 2;
    const velmarin::EndSignals endSignals([&window, &host] {
        host.endSoon();
        window->endNow();
    });
    return velmarin::Application::exec();
}

/// Asks for a dictionary, and opens it in a window of its own.
void chooseDictionary(velmarin::WorkshopWindow& workshop, velmarin::Host& host) {
    const auto chosen = host.SelectFolder("Choose a dictionary: a folder in a group.",
                                          applicationFolder().Child("DictionaryFolder").path());
    if (chosen.empty())
        return;
    if (velmarin::CorrectionWindow* window = openDictionary(host, chosen, {}).release()) {
        window->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(&workshop, &velmarin::WorkshopWindow::ending, window, &velmarin::CorrectionWindow::endNow);
    }
}

/// Opens "Make dictionary" when the reading of the book, which begins as it is opened, has ended.
void makeWhenRead(velmarin::WorkshopWindow& window, velmarin::Host& host) {
    constexpr std::chrono::milliseconds kBetweenLooks{50};
    if (window.reading() != nullptr && window.reading()->running())
        return QTimer::singleShot(kBetweenLooks, &window, [&] { makeWhenRead(window, host); });
    velmarin::makeDictionary(*window.desk(), host, applicationFolder());
}

int makeBook(velmarin::Host& host, const Request& request) {
    velmarin::WorkshopWindow window(host);
    if (!velmarin::pFiMod_UserPrefContainer.isNil())
        window.rememberPlacement(velmarin::pFiMod_UserPrefContainer);
    velmarin::addBookCommands(window, host, applicationFolder());
    QObject::connect(&window, &velmarin::WorkshopWindow::dictionaryWanted, [&] { chooseDictionary(window, host); });
    const velmarin::EndSignals endSignals([&window, &host] {
        host.endSoon();
        window.endNow();
    });
    window.show();
    QTimer::singleShot(0, &window, [&] {
        if (!request.bookOrScan.empty())
            window.open(request.bookOrScan);
        if (window.desk() != nullptr && !request.word.empty())
            velmarin::tryWord(*window.desk(), host, request.word);
        if (window.desk() != nullptr && request.make)
            makeWhenRead(window, host);
    });
    return velmarin::Application::exec();
}

} // namespace

int main(int argc, char** argv) {
    Request request;
    CLI::App options("Velmarin Workshop makes a dictionary of a scanned book.", "velmarin-workshop");
    addOptions(options, request);
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
    auto opening = std::make_unique<velmarin::DisplayGuard>("velmarin-workshop");
    velmarin::Application qt(argc, argv);
    opening.reset();
    velmarin::Application::setWindowIcon(velmarin::programIcon());
    velmarin::QtHost host;
    qt.setHost(&host);
    velmarin::mFiMod_OpenThisModule();
    if (!request.picture.empty()) {
        velmarin::Application::setCursorFlashTime(0);
        savePicture(request.picture);
    }
    return request.dictionary.empty() ? makeBook(host, request) : correctDictionary(host, request);
}
