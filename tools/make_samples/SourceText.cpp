#include "make_samples/SourceText.h"

#include <algorithm>
#include <stdexcept>

#include "side/DictZip.h"
#include "side/DictdIndex.h"
#include "text/FindReplace.h"

namespace velmarin {

namespace {

/// Holds a word of abuse of a people; such articles of old books are no samples.
bool isAbusive(std::string_view text) {
    // The slow search that ignores case is for the few texts that may hold the word at all.
    constexpr auto none = std::string_view::npos;
    return (text.find("igger") != none || text.find("IGGER") != none) && InStr(1, text, "nigger") != 0;
}

} // namespace

SourceText::SourceText(const std::filesystem::path& folder, const std::string& name) {
    const FolderItem files(folder);
    const auto index = DictdIndex::open(files.Child(name + ".index"));
    auto packed = DictZip::open(files.Child(name + ".dict.dz"));
    if (!packed)
        packed = DictZip::open(files.Child(name + ".dict"));
    if (!index || !packed)
        throw std::runtime_error("cannot read " + (folder / name).string());
    const std::vector<DictdPlace> places = index->places();
    std::uint64_t size = 0;
    for (const DictdPlace& place : places)
        size = std::max(size, place.offset + place.size);
    // Piece by piece: to read articles one by one would unpack each chunk of the file many times.
    while (text_.size() < size) {
        const auto piece = packed->read(text_.size(), std::min(DictZip::kLongestPiece, size - text_.size()));
        if (!piece)
            throw std::runtime_error("cannot unpack " + (folder / name).string());
        text_ += *piece;
    }
    for (const DictdPlace& place : places)
        if (const auto article = std::string_view(text_).substr(place.offset, place.size); !isAbusive(article))
            articles_.push_back(article);
}

} // namespace velmarin
