#include "files/IndexedTextFile.h"

#include "files/LineScanner.h"
#include "text/NilObjectException.h"

#include <algorithm>

namespace velmarin {

IndexedTextFile::IndexedTextFile(FolderItem file) : file_(std::move(file)) {}

void IndexedTextFile::forgetPlacesUnlessSame(const FileStamp& stamp) {
    if (stamp == stamp_ && wasSettled_)
        return;
    stamp_ = stamp;
    wasSettled_ = settled(stamp);
    places_ = {};
}

IndexedTextFile::Line IndexedTextFile::line(std::uint64_t number) {
    const auto file = file_.isNil() ? std::nullopt : ReadOnlyFile::open(file_);
    if (!file)
        return {.status = Status::NoFile, .text = {}};
    forgetPlacesUnlessSame(file->stamp());
    if (number == 0)
        return {.status = Status::NoSuchLine, .text = {}};

    std::string_view text;
    const std::uint64_t before = number - 1;
    if (before < places_.lines) {
        const std::size_t known = before / LinePlaces::kStep;
        const std::uint64_t piece = std::clamp<std::uint64_t>(places_.bytesFrom(known), 3, LineScanner::kWindow);
        LineScanner lines(*file, places_.everyNth[known], static_cast<std::size_t>(piece));
        for (std::uint64_t i = 0; i <= before % LinePlaces::kStep; ++i)
            if (!lines.next(text)) // the file has just been cut short
                return {.status = Status::NoSuchLine, .text = {}};
        return {.status = Status::Found, .text = std::string(text)};
    }
    LineScanner lines(*file, places_.end);
    while (lines.next(text)) {
        places_.add(lines.position());
        if (places_.lines == number)
            return {.status = Status::Found, .text = std::string(text)};
    }
    return {.status = Status::NoSuchLine, .text = {}};
}

void IndexedTextFile::findLines() {
    const auto file = file_.isNil() ? std::nullopt : ReadOnlyFile::open(file_);
    if (!file)
        return;
    forgetPlacesUnlessSame(file->stamp());
    try {
        places_ = findLinePlaces(*file);
    } catch (const NilObjectException&) {
        places_ = {};
    }
}

} // namespace velmarin
