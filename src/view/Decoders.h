#pragma once

#include "files/FolderItem.h"
#include "view/Picture.h"

#include <string>
#include <string_view>

namespace velmarin {

/// The reason given for a file that does not exist.
inline constexpr std::string_view kNoSuchFile = "there is no such file";

/// A picture read from a file.
struct DecodedPicture {
    /// Nil if the file is missing or cannot be decoded.
    Picture picture;
    /// Why the picture is nil, or what is damaged in it, in words for the user and without the file's name. Empty if
    /// all is well.
    std::string reason;
};

/// Reads a picture. A file with extension "jpg", "jpeg" or "png" (case ignored) must be of that format. Of any other
/// file the content decides: TIFF, JPEG, PNG, BMP, PICT (with or without its 512-byte file header), GIF, WebP, JPEG
/// 2000, PNM, PCX; TGA, which has no signature, is recognized by its extension.
///
/// Refuses anything but a regular file, and a header that asks for more than isPictureSize allows, before it allocates.
/// Reads the first picture of several. Lays transparent parts over white; applies no gamma and no color profile.
/// Applies the orientation of a TIFF, not that of EXIF. A JPEG with a missing or damaged end gives its readable part
/// and a reason; any other format gives the whole picture or nil. Writes nothing to standard error.
DecodedPicture decodePicture(const FolderItem& file);

/// Reads a picture from the bytes of a file with this extension, likewise.
DecodedPicture decodePictureBytes(std::string_view bytes, std::string_view extension);

/// Reads a file as TIFF, whatever its extension.
DecodedPicture decodeTiffFile(const FolderItem& file);

} // namespace velmarin
