#include "workshop/BookOpener.h"

#include "platform/Host.h"
#include "reading/HeadReader.h"
#include "workshop/NewBookDialog.h"

#include <system_error>

namespace velmarin {

namespace {

bool isBook(const FolderItem& folder) {
    return folder.Child("book.json").Exists();
}

Result makeBook(BookFolder& book, const FolderItem& scan, const NewBookDialog& asked) {
    if (Result made = book.openFor(scan, asked.folder()); !made)
        return made;
    BookSettings settings = book.settings();
    asked.choice().applyTo(settings);
    return book.saveSettings(std::move(settings));
}

} // namespace

std::unique_ptr<BookFolder> openBookOrScan(const std::filesystem::path& path, Host& host, QWidget* window) {
    std::error_code error;
    const FolderItem item(std::filesystem::absolute(path, error).lexically_normal());
    auto book = std::make_unique<BookFolder>();
    Result opened;
    if (!item.Exists()) {
        opened = Failure{item, "there is no such file or folder"};
    } else if (isBook(item)) {
        opened = book->open(item, BookAccess::Write);
    } else if (const FolderItem begun = proposedBookFolder(item); isBook(begun)) {
        opened = book->openFor(item, begun);
    } else {
        NewBookDialog dialog(item, HeadReader::installedLanguages(), host, window);
        if (dialog.exec() != QDialog::Accepted)
            return nullptr;
        opened = makeBook(*book, item, dialog);
    }
    if (opened)
        return book;
    host.MsgBox(opened.failure().message());
    return nullptr;
}

} // namespace velmarin
