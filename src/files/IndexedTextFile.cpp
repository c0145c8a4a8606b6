#include "files/IndexedTextFile.h"

#include "files/LineScanner.h"

namespace velmarin {

IndexedTextFile::IndexedTextFile(FolderItem file) : file_(std::move(file)) {}

void IndexedTextFile::forgetPlacesUnlessSame(const FileStamp& stamp) {
    if (stamp == stamp_ && wasSettled_)
        return;
    stamp_ = stamp;
    wasSettled_ = settled(stamp);
    everyNth_.clear();
    knownLines_ = 0;
    knownTo_ = 0;
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
    if (before < knownLines_) {
        LineScanner lines(*file, everyNth_[before / kStep]);
        for (std::uint64_t i = 0; i <= before % kStep; ++i)
            lines.next(text);
        return {.status = Status::Found, .text = std::string(text)};
    }
    LineScanner lines(*file, knownTo_);
    while (lines.next(text)) {
        notePlace(knownTo_);
        ++knownLines_;
        knownTo_ = lines.position();
        if (knownLines_ == number)
            return {.status = Status::Found, .text = std::string(text)};
    }
    return {.status = Status::NoSuchLine, .text = {}};
}

void IndexedTextFile::notePlace(std::uint64_t place) {
    if (knownLines_ % kStep == 0)
        everyNth_.push_back(place);
}

} // namespace velmarin
