#include "book/TakenPages.h"

#include "files/Leftovers.h"
#include "files/ReadOnlyFile.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "store/FileNames.h"
#include "text/NumberText.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

Failure notWritten(const fs::path& path) {
    return {FolderItem(path), "it could not be written: " + errorInWords(errno)};
}

/// Empty for a folder: its pages are compared one by one.
std::string stampOf(const FolderItem& scan) {
    const auto opened = ReadOnlyFile::open(scan);
    return opened ? Str(static_cast<std::int64_t>(opened->stamp().size)) + ":" + Str(opened->stamp().changedNanoseconds)
                  : std::string();
}

bool isNewer(const fs::path& file, const fs::path& than) {
    std::error_code error;
    const auto one = fs::last_write_time(file, error), other = fs::last_write_time(than, error);
    return !error && one > other;
}

bool sameOptions(const PageOptions& one, const PageOptions& other) {
    return one.dpi == other.dpi && one.turn == other.turn && one.spread == other.spread;
}

/// "a" or "b" for a picture that is a half of a page, as ScanSource names it.
std::string halfOf(const fs::path& picture) {
    const char end = picture.stem().native().back();
    return end == 'a' || end == 'b' ? std::string(1, end) : std::string();
}

} // namespace

PageOptions pageOptions(const PageSettings& settings, int page) {
    PageOptions options;
    options.dpi = settings.dpi;
    if (settings.spread)
        options.spread = settings.rightToLeft ? Spread::RightFirst : Spread::LeftFirst;
    for (const TurnedPages& turned : settings.turned)
        if (turned.pages.has(page))
            options.turn = turned.degrees;
    return options;
}

Result dropStalePages(BookFolder& book) {
    const BookSettings& settings = book.settings();
    const std::string stamp = stampOf(book.source());
    const bool otherScan = settings.takenFrom != stamp;
    const std::vector<std::string> files = book.source().Directory() ? book.scanFiles() : std::vector<std::string>();
    for (const BookPicture& page : book.takenPages()) {
        const bool changed =
            !files.empty() && isNewer(book.source().path() / files[page.scanPage - 1U], page.picture.path());
        const bool sameWay = book.takesPagesOut() && sameOptions(pageOptions(settings.pages, page.scanPage),
                                                                 pageOptions(settings.takenAs, page.scanPage));
        if ((otherScan || changed || !sameWay) && ::unlink(page.picture.path().c_str()) != 0)
            return Failure{page.picture, "it could not be removed: " + errorInWords(errno)};
    }
    Work quiet;
    clearLeftovers(book.takenPagesFolder().path(), quiet);
    if (book.takesPagesOut() && !book.takenPagesFolder().Directory() && !makeFolder(book.takenPagesFolder().path()))
        return notWritten(book.takenPagesFolder().path());
    if (!otherScan && settings.takenAs == settings.pages)
        return {};
    BookSettings taken = settings;
    taken.takenFrom = stamp;
    taken.takenAs = settings.pages;
    return book.saveSettings(std::move(taken));
}

PageTaker::PageTaker(const BookFolder& book, const ScanSource& scan) : book_(book), scan_(scan) {
    for (BookPicture& page : book.takesPagesOut() ? book.takenPages() : book.pages())
        found_[page.scanPage].push_back(std::move(page));
    if (book.source().Directory())
        scanFiles_ = book.scanFiles();
    // A second half without the first one is what a kill has left.
    std::erase_if(found_, [&](const auto& page) {
        const BookPicture& first = page.second.front();
        return book.settings().pages.spread && halfOf(first.picture.path()) == "b" &&
               ::unlink(first.picture.path().c_str()) == 0;
    });
}

const std::vector<BookPicture>& PageTaker::found(int page) const {
    static const std::vector<BookPicture> none;
    const auto place = found_.find(page);
    return place == found_.end() ? none : place->second;
}

PagePictures PageTaker::take(int page, const PageOptions& options) const {
    if (!scanFiles_.empty())
        return takeOfFolder(page, options);
    const fs::path folder = book_.takenPagesFolder().path();
    PagePictures pictures = scan_.takeOut(page - 1U, options, folder);
    for (fs::path& file : pictures.files) {
        if (file.parent_path() == folder)
            continue;
        // The scan is a single picture.
        const fs::path link = folder / ("p0001" + file.extension().native());
        if (!makeLinkTo(fs::absolute(file), link))
            return {.result = notWritten(link)};
        file = link;
    }
    return pictures;
}

PagePictures PageTaker::takeOfFolder(int page, const PageOptions& options) const {
    PagePictures pictures;
    for (const BookPicture& each : found(page))
        pictures.files.push_back(each.picture.path());
    if (!pictures.files.empty())
        return pictures;
    const fs::path folder = book_.takenPagesFolder().path();
    auto staged = StagedMembers::in(folder);
    if (!staged)
        return {.result = notWritten(folder)};
    const fs::path place = staged->placeOf("p").parent_path();
    pictures = scan_.takeOut(page - 1U, options, place);
    const std::string& name = scanFiles_[page - 1U];
    // The first half comes last: if it is there, so is the other.
    for (auto file = pictures.files.rbegin(); file != pictures.files.rend(); ++file) {
        const bool made = file->parent_path() == place;
        const fs::path target =
            folder /
            (made ? mFiMod_RemoveExtesionFromFileName(name) + halfOf(*file) + file->extension().native() : name);
        if (made ? !staged->moveTo(file->filename().native(), target) : !makeLinkTo(fs::absolute(*file), target))
            return {.result = notWritten(target)};
        *file = target;
    }
    return pictures;
}

} // namespace velmarin
