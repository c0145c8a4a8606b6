#include "view/Decoders.h"

#include "files/TextFile.h"
#include "store/Fi_Module.h"
#include "text/StringRules.h"
#include "view/Formats.h"

#include <optional>

namespace velmarin {
namespace {

constexpr std::uint64_t maxFileSize = std::uint64_t{1} << 31;

using namespace std::string_view_literals;

bool beginsWithOneOf(std::string_view bytes, std::initializer_list<std::string_view> starts) {
    for (const std::string_view start : starts)
        if (bytes.starts_with(start))
            return true;
    return false;
}

DecodedPix decodeByContent(std::string_view bytes, std::string_view extension) {
    if (beginsWithOneOf(bytes, {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv}))
        return decodeTiff(bytes);
    if (bytes.starts_with("\xff\xd8\xff"))
        return decodeJpeg(bytes);
    if (bytes.starts_with("\x89PNG"))
        return decodePng(bytes);
    if (bytes.starts_with("BM"))
        return decodeBmp(bytes);
    if (beginsWithOneOf(bytes, {"\0\0\0\x0cjP  \r\n\x87\n"sv, "\xff\x4f\xff\x51"sv}))
        return decodeJpeg2000(bytes);
    if (beginsWithOneOf(bytes, {"GIF87a"sv, "GIF89a"sv}))
        return decodeByMagick(bytes, "GIF");
    if (bytes.size() > 12 && bytes.starts_with("RIFF") && bytes.substr(8).starts_with("WEBP"))
        return decodeByMagick(bytes, "WEBP");
    if (bytes.size() > 2 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6')
        return decodeByMagick(bytes, "PNM");
    if (isPict(bytes))
        return decodePict(bytes);
    if (bytes.size() > 128 && bytes[0] == 10 && bytes[1] >= 0 && bytes[1] <= 5 && bytes[2] == 1)
        return decodeByMagick(bytes, "PCX");
    if (equalStrings(extension, "tga"))
        return decodeByMagick(bytes, "TGA");
    return DecodedPix::failed("its content is no picture of a known format");
}

std::optional<std::string> readPictureFile(const FolderItem& file, std::string& reason) {
    std::optional<std::string> bytes;
    if (file.isNil() || !file.Exists())
        reason = "there is no such file";
    else if (bytes = readWholeFile(file, maxFileSize); !bytes)
        reason = "it is no regular file, cannot be read, or is larger than 2 GB";
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
    return failed("its header asks for " + Str(width) + " x " + Str(height) +
                  " pixels, which is no size that can be shown");
}

DecodedPicture decodePicture(const FolderItem& file) {
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    const std::string extension = mFiMod_GetExtensionFromFileName(file.Name());
    if (equalStrings(extension, "jpg") || equalStrings(extension, "jpeg"))
        return asPicture(decodeJpeg(*bytes));
    if (equalStrings(extension, "png"))
        return asPicture(decodePng(*bytes));
    return asPicture(decodeByContent(*bytes, extension));
}

DecodedPicture decodeTiffFile(const FolderItem& file) {
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return asPicture(decodeTiff(*bytes));
}

} // namespace velmarin
