#include "book/BookFolder.h"

#include "book/MendedRows.h"
#include "files/AtomicFile.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "scan/OpenScan.h"
#include "scan/PageOrder.h"
#include "store/FileNames.h"
#include "store/ImageIndex.h"
#include "text/NilObjectException.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <unordered_map>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSettings = "book.json";
constexpr const char* kSource = "source";

/// Whether `inner` is `outer` or somewhere in it.
bool isIn(const FolderItem& inner, const FolderItem& outer) {
    const fs::path path(inner.AbsolutePath()), top(outer.AbsolutePath());
    return std::mismatch(top.begin(), top.end(), path.begin(), path.end()).first == top.end();
}

std::string stemOf(const std::string& name) {
    return mFiMod_RemoveExtesionFromFileName(name);
}

/// The page of the scan that a picture in the folder of the book was taken out of: 12 for "p0012a.tif".
int pageOfPicture(const std::string& name) {
    int page = 0;
    std::from_chars(name.data() + std::min<std::size_t>(name.size(), 1), name.data() + name.size(), page);
    return page;
}

} // namespace

Result BookFolder::lock() {
    Descriptor opened = openFolder(folder_.path());
    if (!opened)
        return Failure{folder_, "it could not be opened: " + errorInWords(errno)};
    if (!lockAlone(opened) && errno == EWOULDBLOCK)
        return Failure{folder_, "another run is working on this book"};
    lock_ = std::move(opened);
    return {};
}

Result BookFolder::open(const FolderItem& folder, BookAccess access) {
    folder_ = folder;
    if (!folder.Directory())
        return Failure{folder, "there is no such folder"};
    if (access == BookAccess::Write)
        if (Result locked = lock(); !locked)
            return locked;
    if (Result read = readSettings(); !read)
        return read;
    return findSource();
}

Result BookFolder::openFor(const FolderItem& source, const FolderItem& folder) {
    if (!source.Exists())
        return Failure{source, "there is no such file or folder"};
    if (isIn(source, folder) || (source.Directory() && isIn(folder, source)))
        return Failure{folder, "the book and its scan must not be in one another"};
    folder_ = folder;
    const bool isNew = !file(kSettings).occupied();
    if (Result usable = isNew ? openScan(source).result : Result(); !usable)
        return usable;
    if (!folder.occupied() && !makeFolder(folder.path()))
        return Failure{folder, "it could not be made: " + errorInWords(errno)};
    if (Result locked = lock(); !locked)
        return locked;
    if (Result made = isNew ? make() : readSettings(); !made)
        return made;
    if (Result linked = linkTo(source); !linked)
        return linked;
    return findSource();
}

Result BookFolder::make() {
    const auto names = listNames(folder_.path());
    if (!names || !std::all_of(names->begin(), names->end(), isTemporaryName))
        return Failure{folder_, "it is not the folder of a book, and not empty"};
    return saveSettings({});
}

Result BookFolder::readSettings() {
    const FolderItem item = file(kSettings);
    const auto text = readWholeFile(item);
    if (!text)
        return item.occupied() ? Failure{item, "it could not be read: " + errorInWords(errno)}
                               : Failure{folder_, "it is not the folder of a book"};
    auto settings = parseBookSettings(*text);
    if (!settings)
        return Failure{item, "it does not hold the settings of a book"};
    settings_ = std::move(*settings);
    return {};
}

Result BookFolder::linkTo(const FolderItem& source) {
    const FolderItem link = file(kSource);
    if (link.isSameItem(source))
        return {};
    if (link.Exists())
        return Failure{folder_, "it is the book of another scan, " + link.AbsolutePath()};
    if (!makeLinkTo(source.AbsolutePath(), link.path()) || !flushFolder(folder_.path()))
        return Failure{link, "it could not be written: " + errorInWords(errno)};
    return {};
}

Result BookFolder::findSource() {
    const FolderItem link = file(kSource);
    std::error_code error;
    const fs::path target = fs::read_symlink(link.path(), error);
    if (error)
        return Failure{link, "the link to the scan is missing"};
    source_ = FolderItem(folder_.path() / target);
    return source_.Exists() ? Result() : Failure{source_, "the scan of the book is missing"};
}

Result BookFolder::saveSettings(BookSettings settings) {
    if (Result written = writeFileAtomically(file(kSettings).path(), formatBookSettings(settings)); !written)
        return written;
    settings_ = std::move(settings);
    return {};
}

bool BookFolder::takesPagesOut() const {
    return !source_.Directory() || settings_.pages.spread || !settings_.pages.turned.empty();
}

std::vector<std::string> BookFolder::scanFiles() const {
    std::vector<std::string> names = pictureNames(source_);
    sortPages(names);
    return names;
}

std::vector<BookPicture> BookFolder::takenPages() const {
    const FolderItem folder = takenPagesFolder();
    std::vector<std::string> names = pictureNames(folder);
    sortPages(names);
    std::vector<BookPicture> pages;
    if (!source_.Directory()) {
        for (const std::string& name : names)
            pages.push_back({name, pageOfPicture(name), FolderItem(folder.path() / name)});
        return pages;
    }
    std::unordered_map<std::string, std::string> byStem;
    for (const std::string& name : names)
        byStem.try_emplace(stemOf(name), name);
    int number = 0;
    for (const std::string& file : scanFiles()) {
        ++number;
        for (const char* half : {"", "a", "b"})
            if (const auto found = byStem.find(stemOf(file) + half); found != byStem.end())
                pages.push_back({found->second, number, FolderItem(folder.path() / found->second)});
    }
    return pages;
}

std::vector<BookPicture> BookFolder::pages() const {
    std::vector<BookPicture> pages;
    if (takesPagesOut())
        pages = takenPages();
    else
        for (const std::string& name : scanFiles())
            pages.push_back({name, static_cast<int>(pages.size()) + 1, FolderItem(source_.path() / name)});
    std::erase_if(pages, [this](const BookPicture& page) { return settings_.leavesOut(page.scanPage); });
    return pages;
}

Result BookFolder::loadDraft(Draft& draft) const {
    const FolderItem item = draftFile();
    draft = {};
    if (!item.occupied())
        return {};
    const auto text = readWholeFile(item);
    if (!text)
        return Failure{item, "it could not be read: " + errorInWords(errno)};
    auto read = parseDraft(*text);
    if (!read)
        return Failure{item,
                       "it is not a draft: its first row has no column \"page\", or a quote in it is never closed"};
    try {
        setEditedRows(*read, item, mendedFile());
    } catch (const NilObjectException& unreadable) {
        return Failure{item, unreadable.what()};
    }
    draft = std::move(*read);
    return {};
}

Result BookFolder::saveDraft(const Draft& draft) const {
    try {
        if (Result kept = keepMendedRows(draft, mendedFile()); !kept)
            return kept;
    } catch (const NilObjectException& unreadable) {
        return Failure{mendedFile(), unreadable.what()};
    }
    return velmarin::saveDraft(draft, draftFile().path());
}

Readings BookFolder::readings() const {
    return readReadings(readingsFile());
}

} // namespace velmarin
