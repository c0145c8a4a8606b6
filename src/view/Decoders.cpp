#include "view/Decoders.h"

#include "files/ReadOnlyFile.h"
#include "store/FileNames.h"
#include "store/PictureFormats.h"
#include "text/NumberText.h"
#include "view/DecodeByLeptonica.h"
#include "view/DecodeByMagick.h"
#include "view/DecodeJpeg.h"
#include "view/DecodePict.h"
#include "view/DecodePng.h"
#include "view/DecodeTiff.h"

#include <optional>

namespace velmarin {
namespace {

constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 31;

DecodedPix decodeAs(std::optional<PictureFormat> format, std::string_view bytes) {
    if (!format)
        return DecodedPix::failed("its content is not a picture in a known format");
    switch (*format) {
    case PictureFormat::Jpeg:
        return decodeJpeg(bytes);
    case PictureFormat::Png:
        return decodePng(bytes);
    case PictureFormat::Tiff:
        return decodeTiff(bytes);
    case PictureFormat::Bmp:
        return decodeBmp(bytes);
    case PictureFormat::Jpeg2000:
        return decodeJpeg2000(bytes);
    case PictureFormat::Gif:
        return decodeByMagick(bytes, "GIF");
    case PictureFormat::WebP:
        return decodeByMagick(bytes, "WEBP");
    case PictureFormat::Pnm:
        return decodeByMagick(bytes, "PNM");
    case PictureFormat::Pict:
        return decodePict(bytes);
    case PictureFormat::Pcx:
        return decodeByMagick(bytes, "PCX");
    case PictureFormat::Tga:
        return decodeByMagick(bytes, "TGA");
    }
    return {};
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
    std::string reason;
    const std::optional<std::string> bytes = readPictureFile(file, reason);
    if (!bytes)
        return {Picture(), reason};
    return decodePictureBytes(*bytes, mFiMod_GetExtensionFromFileName(file.Name()));
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
