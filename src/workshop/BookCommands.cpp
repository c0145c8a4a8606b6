#include "workshop/BookCommands.h"

#include "platform/Host.h"
#include "platform/QtText.h"
#include "reading/HeadReader.h"
#include "workshop/MakeDialog.h"
#include "workshop/NewBookDialog.h"
#include "workshop/ReadingControl.h"
#include "workshop/ScannedBook.h"
#include "workshop/TryItPane.h"
#include "workshop/WorkshopDesk.h"
#include "workshop/WorkshopMenus.h"
#include "workshop/WorkshopWindow.h"

#include <QKeySequence>
#include <QProcess>

namespace velmarin {

namespace {

ScannedBook* scannedBook(WorkshopDesk& desk) {
    return dynamic_cast<ScannedBook*>(&desk.model().book());
}

ReadingControl* readingOf(const WorkshopDesk& desk) {
    const auto* window = qobject_cast<WorkshopWindow*>(desk.window());
    return window != nullptr ? window->reading() : nullptr;
}

/// The pane of the book that is open; it ends with its desk.
TryItPane& tryItPane(WorkshopDesk& desk, Host& host) {
    if (auto* pane = desk.findChild<TryItPane*>())
        return *pane;
    auto* pane = new TryItPane(desk.model(), host, &desk);
    QObject::connect(&desk, &WorkshopDesk::changed, pane, &TryItPane::takeDraft);
    QObject::connect(pane, &TryItPane::pageWanted, &desk, [&desk](const std::string& page) {
        const auto& pages = desk.model().draft().pages;
        for (std::size_t row = 0; row < pages.size(); ++row)
            if (pages[row].page == page)
                desk.select(row);
        desk.window()->activateWindow();
    });
    if (const ReadingControl* reading = readingOf(desk))
        QObject::connect(reading, &ReadingControl::taken, pane, &TryItPane::takeDraft);
    return *pane;
}

/// Asks how the book is to be read, and reads it again.
void changeReading(WorkshopDesk& desk, Host& host) {
    ReadingControl* reading = readingOf(desk);
    if (scannedBook(desk) == nullptr || reading == nullptr)
        return;
    const BookFolder& book = scannedBook(desk)->folder();
    NewBookDialog dialog(book.source(), HeadReader::installedLanguages(), host, desk.window());
    dialog.showBook(book);
    if (dialog.exec() != QDialog::Accepted)
        return;
    reading->changeSettings([choice = dialog.choice()](BookSettings& settings) { choice.applyTo(settings); });
}

} // namespace

void tryWord(WorkshopDesk& desk, Host& host, const std::string& word) {
    TryItPane& pane = tryItPane(desk, host);
    pane.setWord(word);
    pane.takeFocus();
}

void makeDictionary(WorkshopDesk& desk, Host& host, const FolderItem& applicationFolder) {
    if (scannedBook(desk) == nullptr)
        return;
    if (const ReadingControl* reading = readingOf(desk); reading != nullptr && reading->running())
        return host.MsgBox("The book is being read. Stop the reading, or wait until it ends.");
    auto* dialog =
        new MakeDialog(scannedBook(desk)->folder(), applicationFolder.Child("DictionaryFolder"), host, &desk);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const FolderItem program = applicationFolder.Child("velmarin");
    QObject::connect(dialog, &MakeDialog::made, &desk,
                     [&host, program](const std::string& group, const std::string& word) {
                         if (!QProcess::startDetached(toQ(program.path().native()),
                                                      {QStringLiteral("--group"), toQ(group), toQ(word)}))
                             host.MsgBox("The dictionary is made. Velmarin could not be started: \"" +
                                         program.path().native() + "\".");
                     });
    if (auto* window = qobject_cast<WorkshopWindow*>(desk.window()))
        QObject::connect(window, &WorkshopWindow::ending, dialog, &MakeDialog::reject);
    dialog->open();
}

void addBookCommands(WorkshopWindow& window, Host& host, const FolderItem& applicationFolder) {
    WorkshopMenus& menus = window.menus();
    menus.addItem(menus.bookMenu(), QStringLiteral("&Try it…"), Qt::CTRL | Qt::Key_T,
                  [&host](WorkshopDesk& desk) { tryItPane(desk, host).takeFocus(); });
    menus.addItem(
        menus.bookMenu(), QStringLiteral("&Languages and pages…"), {},
        [&host](WorkshopDesk& desk) { changeReading(desk, host); },
        [](WorkshopDesk& desk) { return scannedBook(desk) != nullptr; });
    menus.addItem(
        menus.bookMenu(), QStringLiteral("&Make dictionary…"), Qt::CTRL | Qt::Key_M,
        [&host, applicationFolder](WorkshopDesk& desk) { makeDictionary(desk, host, applicationFolder); },
        [](WorkshopDesk& desk) { return scannedBook(desk) != nullptr; });
}

} // namespace velmarin
