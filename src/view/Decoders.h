#pragma once

#include "files/FolderItem.h"
#include "view/Picture.h"

#include <string>
#include <string_view>

namespace velmarin {

/// What reading a picture came to.
struct DecodedPicture {
    /// Nil where the file is missing or could not be decoded.
    Picture picture;
    /// In plain words, without the file's name: why there is no picture, or what is damaged in the one that there is.
    /// Empty where all is well.
    std::string reason;
};

/// Reads a picture by its file's extension, whose case does not matter: "jpg" and "jpeg" must be JPEG, "png" must be
/// PNG; "tif", "tiff" and any other, or none, are read as what their content says they are: TIFF, JPEG, PNG, BMP, PICT
/// (with or without the 512 bytes before it), GIF, WebP, JPEG 2000, PNM, PCX, and TGA by its extension.
///
/// A file that is no regular file, or a header that asks for more than isPictureSize allows, is refused before memory
/// is taken. Of several pictures in a file the first is read. Transparent parts are laid over white; no gamma and no
/// colour profile is applied. The turn that a TIFF asks for is carried out, that of EXIF is not. A JPEG whose end is
/// missing or damaged gives what can be seen of it, with a reason; any other format is whole or nil.
/// Writes nothing to standard error.
DecodedPicture decodePicture(const FolderItem& file);

/// Reads a TIFF file, and nothing else, whatever its extension.
DecodedPicture decodeTiffFile(const FolderItem& file);

} // namespace velmarin
