#include "scan/PictureExtent.h"

#include "files/FolderItem.h"
#include "store/FileNames.h"
#include "text/LetterCase.h"
#include "view/Decoders.h"
#include "view/PixTools.h"

namespace velmarin {

std::optional<Extent> pictureExtent(const std::filesystem::path& file) {
    silenceLeptonica();
    // The header tells it, but for a TIFF that is to be turned when shown.
    const std::string extension = mFiMod_GetExtensionFromFileName(file.filename().string());
    int format = 0, width = 0, height = 0;
    const bool exact =
        equalStrings(extension, "jpg") || equalStrings(extension, "jpeg") || equalStrings(extension, "png");
    if (exact && pixReadHeader(file.c_str(), &format, &width, &height, nullptr, nullptr, nullptr) == 0 &&
        isPictureSize(width, height))
        return Extent{width, height};
    const Picture picture = decodePicture(FolderItem(file)).picture;
    return picture ? std::optional(Extent{picture.Width(), picture.Height()}) : std::nullopt;
}

} // namespace velmarin
