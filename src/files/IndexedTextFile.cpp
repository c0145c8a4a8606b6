#include "files/IndexedTextFile.h"

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

    const std::uint64_t before = number - 1;
    if (before < knownLines_) {
        FileLineReader reader(*file, everyNth_[before / kStep]);
        for (std::uint64_t i = before % kStep; i > 0; --i)
            reader.skipLine();
        return {.status = Status::Found, .text = reader.ReadLine()};
    }
    FileLineReader reader(*file, knownTo_);
    for (; knownLines_ < before && !reader.EOF_(); ++knownLines_) {
        notePlace(reader.position());
        reader.skipLine();
    }
    knownTo_ = reader.position();
    if (reader.EOF_())
        return {.status = Status::NoSuchLine, .text = {}};
    notePlace(knownTo_);
    Line found{.status = Status::Found, .text = reader.ReadLine()};
    ++knownLines_;
    knownTo_ = reader.position();
    return found;
}

void IndexedTextFile::notePlace(std::uint64_t place) {
    if (knownLines_ % kStep == 0)
        everyNth_.push_back(place);
}

} // namespace velmarin
