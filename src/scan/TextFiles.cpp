#include "scan/TextFiles.h"

#include "files/ReadOnlyFile.h"
#include "scan/XmlText.h"
#include "store/FileNames.h"
#include "text/LetterCase.h"
#include "text/UnicodeForms.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <unordered_set>
#include <utility>

namespace velmarin {

namespace {

constexpr std::uint64_t kMostPageBytes = std::uint64_t{64} << 20;
/// In the order in which they are looked for.
constexpr const char* kExtensions[] = {"hocr", "html", "htm", "xml"};

bool isTextName(const std::string& name) {
    return std::any_of(std::begin(kExtensions), std::end(kExtensions),
                       [&](const char* each) { return equalStrings(mFiMod_GetExtensionFromFileName(name), each); });
}

bool isAlto(const FolderItem& file) {
    return equalStrings(mFiMod_GetExtensionFromFileName(file.Name()), "xml");
}

std::string foldedStem(const std::string& name) {
    return foldedFileName(mFiMod_RemoveExtesionFromFileName(name));
}

std::optional<std::string> readPart(const FolderItem& item, std::uint64_t from, std::uint64_t size) {
    const auto file = ReadOnlyFile::open(item);
    if (!file || size > kMostPageBytes)
        return std::nullopt;
    std::string bytes(size, '\0');
    std::size_t got = 0;
    while (got < size) {
        const auto more = file->read(from + got, bytes.data() + got, size - got);
        if (!more)
            return std::nullopt;
        if (*more == 0)
            break;
        got += *more;
    }
    bytes.resize(got);
    return bytes;
}

std::optional<PageText> parsed(const FolderItem& file, const std::string& bytes) {
    return isAlto(file) ? readAlto(bytes) : readHocr(bytes);
}

std::vector<TextPart> partsOf(const FolderItem& file, const std::string& bytes) {
    return isAlto(file) ? altoParts(bytes) : hocrParts(bytes);
}

} // namespace

TextFiles::TextFiles(const FolderItem& folder, std::vector<std::string> pages)
    : folder_(folder), pages_(std::move(pages)), pageCount_(pages_.size()) {}

TextFiles::TextFiles(const FolderItem& scan, std::size_t pageCount)
    : folder_(FolderItem(scan.path().parent_path().empty() ? "." : scan.path().parent_path())),
      stem_(mFiMod_RemoveExtesionFromFileName(scan.Name())), pageCount_(pageCount) {}

std::optional<PageText> TextFiles::textOf(std::size_t page) const {
    if (auto own = ownText(page, 1))
        return own;
    std::call_once(searched_, [this] { places_ = findPlaces(); });
    const auto found = places_.find(page);
    if (found == places_.end())
        return ownText(page, std::numeric_limits<std::size_t>::max());
    const Place& place = found->second;
    const auto bytes = readPart(place.file, place.from, place.size);
    return bytes ? parsed(place.file, (isAlto(place.file) ? "<alto>" : "") + *bytes) : std::nullopt;
}

std::optional<PageText> TextFiles::ownText(std::size_t page, std::size_t mostPages) const {
    if (page >= pages_.size())
        return std::nullopt;
    for (const char* extension : kExtensions) {
        const FolderItem file = folder_.Child(mFiMod_RemoveExtesionFromFileName(pages_[page]) + "." + extension);
        const auto bytes = readWholeFile(file, kMostPageBytes);
        if (!bytes || partsOf(file, *bytes).size() > mostPages)
            continue;
        if (auto text = parsed(file, *bytes))
            return text;
    }
    return std::nullopt;
}

TextFiles::Places TextFiles::findPlaces() const {
    Places places;
    for (const FolderItem& file : filesOfManyPages())
        addPlaces(file, places);
    return places;
}

std::vector<FolderItem> TextFiles::filesOfManyPages() const {
    std::vector<FolderItem> files;
    if (!stem_.empty()) {
        for (const char* extension : kExtensions)
            files.push_back(folder_.Child(stem_ + "." + extension));
        return files;
    }
    std::vector<std::string> names = listNames(folder_.path()).value_or(std::vector<std::string>());
    std::erase_if(names, [](const std::string& name) { return !isTextName(name); });
    std::sort(names.begin(), names.end());
    std::unordered_set<std::string> stems;
    for (const std::string& page : pages_)
        stems.insert(foldedStem(page));
    // Files of single pages are passed over, but not one that has the name of a page and all of them.
    if (names.size() > 1)
        std::erase_if(names, [&](const std::string& name) { return stems.contains(foldedStem(name)); });
    for (const std::string& name : names)
        files.push_back(folder_.Child(name));
    return files;
}

void TextFiles::addPlaces(const FolderItem& file, Places& places) const {
    const auto bytes = readWholeFile(file);
    if (!bytes)
        return;
    const std::vector<TextPart> parts = partsOf(file, *bytes);
    std::unordered_map<std::string, std::size_t> byStem;
    for (std::size_t i = 0; i < pages_.size(); ++i)
        byStem.try_emplace(foldedStem(pages_[i]), i);
    const bool byPlace = parts.size() == pageCount_;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto named = byStem.find(foldedStem(parts[i].image));
        if (named != byStem.end())
            places.try_emplace(named->second, Place{file, parts[i].from, parts[i].size});
        else if (byPlace)
            places.try_emplace(i, Place{file, parts[i].from, parts[i].size});
    }
}

} // namespace velmarin
