#include "store/PictureFormats.h"

#include "text/LetterCase.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace velmarin {

namespace {

using namespace std::string_view_literals;

using Bytes = std::string_view;

bool startsWithOneOf(Bytes bytes, std::initializer_list<Bytes> starts) {
    return std::any_of(starts.begin(), starts.end(), [&](Bytes start) { return bytes.starts_with(start); });
}

bool isTiff(Bytes bytes) {
    return startsWithOneOf(bytes, {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv});
}

bool isJpeg2000(Bytes bytes) {
    return startsWithOneOf(bytes, {"\0\0\0\x0cjP  \r\n\x87\n"sv, "\xff\x4f\xff\x51"sv});
}

bool isWebP(Bytes bytes) {
    return bytes.size() > 12 && bytes.starts_with("RIFF") && bytes.substr(8).starts_with("WEBP");
}

bool isPnm(Bytes bytes) {
    return bytes.size() > 2 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6';
}

bool isPcx(Bytes bytes) {
    return bytes.size() > 128 && bytes[0] == 10 && bytes[1] >= 0 && bytes[1] <= 5 && bytes[2] == 1;
}

struct FormatRow {
    PictureFormat format;
    /// Files with these extensions are listed in a new `ImageIndex`. If there are none, pages in this format are shown
    /// only where a page list names them.
    std::vector<std::string_view> listed;
    /// Whether a listed extension decides for this format, whatever the content of the file.
    bool extensionDecides;
    /// Of several rows that match, the first counts.
    bool (*matches)(Bytes bytes);
};

const std::vector<FormatRow>& formatRows() {
    using enum PictureFormat;
    static const std::vector<FormatRow> rows{
        {Jpeg, {"jpg", "jpeg"}, true, [](Bytes bytes) { return bytes.starts_with("\xff\xd8\xff"); }},
        {Png, {"png"}, true, [](Bytes bytes) { return bytes.starts_with("\x89PNG"); }},
        {Tiff, {"tif", "tiff"}, false, isTiff},
        {Bmp, {"bmp"}, false, [](Bytes bytes) { return bytes.starts_with("BM"); }},
        {Jpeg2000, {}, false, isJpeg2000},
        {Gif, {}, false, [](Bytes bytes) { return bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a"); }},
        {WebP, {}, false, isWebP},
        {Pnm, {}, false, isPnm},
        {Pict, {"pict", "pct"}, false, [](Bytes bytes) { return pictStart(bytes) != Bytes::npos; }},
        {Pcx, {}, false, isPcx},
    };
    return rows;
}

std::set<std::string> allListedExtensions() {
    std::set<std::string> all;
    for (const FormatRow& row : formatRows())
        all.insert(row.listed.begin(), row.listed.end());
    return all;
}

} // namespace

const std::set<std::string> pPictureExtensions = allListedExtensions();

std::optional<PictureFormat> pictureFormat(std::string_view bytes, std::string_view extension) {
    for (const FormatRow& row : formatRows()) {
        const auto isThis = [&](std::string_view listed) { return equalStrings(extension, listed); };
        if (row.extensionDecides && std::any_of(row.listed.begin(), row.listed.end(), isThis))
            return row.format;
    }
    for (const FormatRow& row : formatRows()) {
        if (row.matches(bytes))
            return row.format;
    }
    return equalStrings(extension, "tga") ? std::optional(PictureFormat::Tga) : std::nullopt;
}

std::size_t pictStart(std::string_view bytes) {
    for (const std::size_t start : {std::size_t{512}, std::size_t{0}}) {
        if (bytes.size() < start + 14)
            continue;
        const std::string_view version = bytes.substr(start + 10);
        if (version.starts_with("\0\x11\x02\xff"sv) || version.starts_with("\x11\x01"sv))
            return start;
    }
    return std::string_view::npos;
}

} // namespace velmarin
