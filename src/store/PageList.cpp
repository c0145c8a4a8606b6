#include "store/PageList.h"

#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "store/ImageIndex.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "text/StringFields.h"
#include "text/UnicodeForms.h"

#include <algorithm>
#include <cerrno>

namespace velmarin {

namespace {

constexpr std::uint64_t kLargestImageIndex = std::uint64_t{1} << 26;

/// Line 1 is the index of the last page; the pages follow, a line each. `captioned` lines are a name, TAB and a
/// caption.
PageList readImageIndex(const FolderItem& file, bool captioned) {
    const auto text = readWholeFile(file, kLargestImageIndex);
    if (!text)
        throw NilObjectException("The page list \"" + file.path().native() +
                                 "\" could not be read: " + errorInWords(errno));
    LineReader lines(*text);
    const std::int64_t promised = std::int64_t{toInt32(CDbl(lines.ReadLine()))} + 1;
    PageList pages;
    for (std::int64_t i = 0; i < std::min<std::int64_t>(promised, kMostPages); ++i) {
        const std::string_view line = lines.ReadLine();
        pages.names.emplace_back(captioned ? NthField(line, "\t", 1) : line);
        pages.captions.emplace_back(captioned ? NthField(line, "\t", 2) : line);
    }
    return pages;
}

} // namespace

void ImageDictionaryMap::set(std::string_view name, int position) {
    positions_[foldedFileName(name)] = position;
}

int ImageDictionaryMap::value(std::string_view name) const {
    const auto found = positions_.find(foldedFileName(name));
    return found == positions_.end() ? 0 : found->second;
}

bool ImageDictionaryMap::has(std::string_view name) const {
    return positions_.contains(foldedFileName(name));
}

PageList readPageList(const FolderItem& imageFolder) {
    if (const FolderItem captioned = imageFolder.Child("ImageIndex2"); captioned.Exists())
        return readImageIndex(captioned, true);
    if (const FolderItem plain = imageFolder.Child("ImageIndex"); plain.Exists())
        return readImageIndex(plain, false);
    if (mFiMod_MakeImageIndex(imageFolder))
        return readImageIndex(imageFolder.Child("ImageIndex"), false);

    std::vector<std::string> names = pictureNames(imageFolder);
    if (names.empty())
        throw NilObjectException("There is no page list in \"" + imageFolder.path().native() +
                                 "\", and no picture to make one from.");
    std::vector<std::string> captions = names;
    return {.names = std::move(names), .captions = std::move(captions)};
}

} // namespace velmarin
