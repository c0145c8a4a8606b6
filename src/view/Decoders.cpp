#include "view/Decoders.h"

#include "files/ReadOnlyFile.h"
#include "store/FileNames.h"
#include "store/PictureFormats.h"
#include "text/NumberText.h"
#include "view/DecodeByHelper.h"
#include "view/DecodeJpeg.h"
#include "view/DecodePng.h"
#include "view/DecodeTiff.h"

#include <optional>

namespace velmarin {
namespace {

constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 31;
/// Enough to recognize every format.
constexpr std::size_t kStart = 1024;

constexpr const char* kUnknown = "its content is not a picture in a known format";

DecodedPix decodeAs(std::optional<PictureFormat> format, std::string_view bytes) {
    if (!format)
        return DecodedPix::failed(kUnknown);
    switch (*format) {
    case PictureFormat::Jpeg:
        return decodeJpeg(bytes);
    case PictureFormat::Png:
        return decodePng(bytes);
    case PictureFormat::Tiff:
        return decodeTiff(bytes);
    default:
        return decodeByHelper(*format, bytes);
    }
}

std::optional<std::string> readPictureFile(const FolderItem& file, std::string& reason) {
    std::optional<std::string> bytes;
    if (file.isNil() || !file.Exists())
        reason = kNoSuchFile;
    else if (bytes = readWholeFile(file, kMaxFileSize); !bytes)
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

DecodedPicture decodePicture(const FolderItem& file) {
    const std::string extension = mFiMod_GetExtensionFromFileName(file.isNil() ? "" : file.Name());
    // A file of another kind is not read whole.
    const auto opened = file.isNil() ? std::nullopt : ReadOnlyFile::open(file);
    const auto start = opened ? readFileStart(*opened, kStart) : std::nullopt;
    if (start && !start->empty()) {
        const auto format = pictureFormat(*start, extension);
        if (!format)
            return {Picture(), kUnknown};
        if (isRareFormat(*format) && opened->stamp().size <= kMaxFileSize)
            return asPicture(decodeByHelper(*format, opened->descriptor()));
    }
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return decodePictureBytes(*bytes, extension);
}

DecodedPicture decodePictureBytes(std::string_view bytes, std::string_view extension) {
    return asPicture(decodeAs(pictureFormat(bytes, extension), bytes));
}

DecodedPicture decodeTiffFile(const FolderItem& file) {
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return asPicture(decodeTiff(*bytes));
}

} // namespace velmarin
