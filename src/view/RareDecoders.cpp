#include "view/RareDecoders.h"

#include "view/DecodeByLeptonica.h"
#include "view/DecodeByMagick.h"
#include "view/DecodePict.h"

namespace velmarin {

DecodedPix decodeRare(PictureFormat format, std::string_view bytes) {
    switch (format) {
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
    case PictureFormat::Jpeg:
    case PictureFormat::Png:
    case PictureFormat::Tiff:
        break;
    }
    return DecodedPix::failed("its format is not decoded here");
}

void prepareRareDecoder(PictureFormat format) {
    // GraphicsMagick decodes none of JPEG 2000 and few of BMP, for which it needs no files.
    if (format != PictureFormat::Bmp && format != PictureFormat::Jpeg2000)
        initializeMagick();
}

} // namespace velmarin
