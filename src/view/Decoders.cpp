#include "view/Decoders.h"

#include "files/ReadOnlyFile.h"
#include "store/FileNames.h"
#include "text/LetterCase.h"
#include "text/NumberText.h"
#include "view/Formats.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace velmarin {
namespace {

constexpr std::uint64_t maxFileSize = std::uint64_t{1} << 31;

using namespace std::string_view_literals;

bool beginsWithOneOf(std::string_view bytes, std::initializer_list<std::string_view> starts) {
    return std::any_of(starts.begin(), starts.end(), [&](auto start) { return bytes.starts_with(start); });
}

template <std::size_t N> bool startsWith(std::string_view bytes, const char (&start)[N]) {
    return bytes.starts_with(std::string_view(start, N - 1));
}

struct PictureFormat {
    /// Files with such an extension must be of this format; other files are of the first format that matches.
    std::vector<std::string_view> decidingExtensions;
    bool (*matches)(std::string_view bytes, std::string_view extension);
    DecodedPix (*decode)(std::string_view bytes);
};

const std::vector<PictureFormat>& pictureFormats() {
    using Bytes = std::string_view;
    static const std::vector<PictureFormat> formats{
        {{"jpg", "jpeg"}, [](Bytes bytes, Bytes) { return startsWith(bytes, "\xff\xd8\xff"); }, decodeJpeg},
        {{"png"}, [](Bytes bytes, Bytes) { return startsWith(bytes, "\x89PNG"); }, decodePng},
        {{},
         [](Bytes bytes, Bytes) {
             return beginsWithOneOf(bytes, {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv});
         },
         decodeTiff},
        {{}, [](Bytes bytes, Bytes) { return startsWith(bytes, "BM"); }, decodeBmp},
        {{},
         [](Bytes bytes, Bytes) {
             return beginsWithOneOf(bytes, {"\0\0\0\x0cjP  \r\n\x87\n"sv, "\xff\x4f\xff\x51"sv});
         },
         decodeJpeg2000},
        {{},
         [](Bytes bytes, Bytes) {
             return beginsWithOneOf(bytes, {"GIF87a"sv, "GIF89a"sv});
         },
         [](Bytes bytes) { return decodeByMagick(bytes, "GIF"); }},
        {{},
         [](Bytes bytes, Bytes) {
             return bytes.size() > 12 && startsWith(bytes, "RIFF") && startsWith(bytes.substr(8), "WEBP");
         },
         [](Bytes bytes) { return decodeByMagick(bytes, "WEBP"); }},
        {{},
         [](Bytes bytes, Bytes) { return bytes.size() > 2 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6'; },
         [](Bytes bytes) { return decodeByMagick(bytes, "PNM"); }},
        {{}, [](Bytes bytes, Bytes) { return isPict(bytes); }, decodePict},
        {{},
         [](Bytes bytes, Bytes) {
             return bytes.size() > 128 && bytes[0] == 10 && bytes[1] >= 0 && bytes[1] <= 5 && bytes[2] == 1;
         },
         [](Bytes bytes) { return decodeByMagick(bytes, "PCX"); }},
        {{},
         [](Bytes, Bytes extension) { return equalStrings(extension, "tga"); },
         [](Bytes bytes) { return decodeByMagick(bytes, "TGA"); }},
    };
    return formats;
}

DecodedPix decodeAs(std::string_view extension, std::string_view bytes) {
    for (const PictureFormat& format : pictureFormats())
        for (const std::string_view deciding : format.decidingExtensions)
            if (equalStrings(extension, deciding))
                return format.decode(bytes);
    for (const PictureFormat& format : pictureFormats())
        if (format.matches(bytes, extension))
            return format.decode(bytes);
    return DecodedPix::failed("its content is not a picture in a known format");
}

std::optional<std::string> readPictureFile(const FolderItem& file, std::string& reason) {
    std::optional<std::string> bytes;
    if (file.isNil() || !file.Exists())
        reason = noSuchFile;
    else if (bytes = readWholeFile(file, maxFileSize); !bytes)
        reason = "it is not a regular file, cannot be read, or is larger than 2 GB";
    else if (bytes->empty()) {
        reason = "the file is empty";
        bytes.reset();
    }
    return bytes;
}

DecodedPicture asPicture(DecodedPix decoded) {
    return {Picture::adopt(decoded.pix.release()), std::move(decoded.reason)};
}

} // namespace

DecodedPix DecodedPix::tooLarge(std::int64_t width, std::int64_t height) {
    return failed("its header asks for " + Str(width) + " x " + Str(height) + " pixels, a size that cannot be shown");
}

DecodedPicture decodePicture(const FolderItem& file) {
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return asPicture(decodeAs(mFiMod_GetExtensionFromFileName(file.Name()), *bytes));
}

DecodedPicture decodeTiffFile(const FolderItem& file) {
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return asPicture(decodeTiff(*bytes));
}

} // namespace velmarin
