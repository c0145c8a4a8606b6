#include "book/ScanPageReader.h"

#include "files/ReadOnlyFile.h"
#include "view/Decoders.h"

#include <exception>
#include <new>
#include <utility>

namespace velmarin {

namespace {

bool isIn(const FolderItem& item, const FolderItem& folder) {
    return item.path().native().starts_with(folder.path().native() + "/");
}

} // namespace

LoggedReading readingToBe(const FolderItem& picture, const BookSettings& settings) {
    LoggedReading reading;
    reading.reading.page = picture.Name();
    for (const std::string& language : settings.languages)
        reading.languages += (reading.languages.empty() ? "" : "+") + language;
    for (const std::string& list : settings.wordLists)
        reading.languages += "+" + list;
    if (const auto file = ReadOnlyFile::open(picture)) {
        reading.size = file->stamp().size;
        reading.changed = file->stamp().changedNanoseconds;
    }
    return reading;
}

bool isReadingOf(const LoggedReading& reading, const LoggedReading& wanted) {
    return reading.failure.empty() && reading.size == wanted.size && reading.changed == wanted.changed &&
           (reading.languages == wanted.languages || reading.reading.fromTextLayer);
}

ScanPageReader::ScanPageReader(const BookFolder& book, const ScanSource& scan, const PageTaker& taker,
                               std::shared_ptr<const WordList> words)
    : book_(book), scan_(scan), taker_(taker), opened_(reader_.open(book.settings().languages, std::move(words))) {}

ReadScanPage ScanPageReader::read(int page, const PageOptions& options) {
    try {
        return readPictures(page, options);
    } catch (const std::bad_alloc&) {
        return {.result = Failure{book_.source(), "a page needs more memory than there is"}};
    } catch (const std::exception& error) {
        return {.result = Failure{book_.source(), error.what()}};
    }
}

ReadScanPage ScanPageReader::readPictures(int page, const PageOptions& options) {
    const PagePictures pictures = taker_.take(page, options);
    if (!pictures.result)
        return {.result = pictures.result, .fatal = isIn(pictures.result.failure().item, book_.folder())};
    const auto layers = scan_.textOf(page - 1U, options, pictures.files);
    ReadScanPage done;
    for (std::size_t i = 0; i < pictures.files.size(); ++i) {
        const FolderItem file(pictures.files[i]);
        const PageText* layer = i < layers.size() && layers[i] ? &*layers[i] : nullptr;
        if (!layer && !opened_)
            return {.result = opened_, .fatal = true};
        LoggedReading reading = readingToBe(file, book_.settings());
        const DecodedPicture decoded = decodePicture(file);
        if (decoded.picture.isNil())
            reading.failure = "it cannot be decoded: " + decoded.reason;
        else
            reading.reading = reader_.read(file.Name(), decoded.picture, layer);
        done.readings.push_back(std::move(reading));
    }
    return done;
}

} // namespace velmarin
