#include "ImageFiles.h"

#include "support/TempFolder.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <allheaders.h>
#include <jpeglib.h>
#include <tiffio.h>

namespace velmarin::test {

std::string encoded(const Picture& picture, int format) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    if (pixWriteMem(&data, &size, picture.pix(), format) != 0)
        throw std::runtime_error("a fixture could not be written");
    std::string bytes(reinterpret_cast<const char*>(data), size);
    lept_free(data);
    return bytes;
}

DecodedPicture decoded(const std::string& name, std::string_view bytes) {
    const TempFolder folder;
    return decodePicture(FolderItem(folder.write(name, bytes)));
}

namespace {

void putSample(std::string& row, std::size_t index, int bits, unsigned value) {
    if (bits == 16) {
        row[2 * index] = static_cast<char>(value & 0xff);
        row[2 * index + 1] = static_cast<char>(value >> 8);
        return;
    }
    const std::size_t at = index * static_cast<std::size_t>(bits);
    const auto shift = static_cast<unsigned>(8 - bits - static_cast<int>(at % 8));
    row[at / 8] = static_cast<char>(static_cast<unsigned char>(row[at / 8]) | (value << shift));
}

} // namespace

std::string tiff(const TiffLayout& l, const std::function<unsigned(int, int, int)>& value) {
    const TempFolder folder;
    TIFF* out = TIFFOpen((folder.path() / "t.tif").c_str(), "w");
    TIFFSetField(out, TIFFTAG_IMAGEWIDTH, l.width);
    TIFFSetField(out, TIFFTAG_IMAGELENGTH, l.height);
    TIFFSetField(out, TIFFTAG_BITSPERSAMPLE, l.bits);
    TIFFSetField(out, TIFFTAG_SAMPLESPERPIXEL, l.samples);
    TIFFSetField(out, TIFFTAG_PHOTOMETRIC, l.photometric);
    TIFFSetField(out, TIFFTAG_COMPRESSION, l.compression);
    TIFFSetField(out, TIFFTAG_FILLORDER, l.fillOrder);
    TIFFSetField(out, TIFFTAG_ORIENTATION, l.orientation);
    TIFFSetField(out, TIFFTAG_PLANARCONFIG, l.planes ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (l.extraSample >= 0) {
        const auto kind = static_cast<std::uint16_t>(l.extraSample);
        TIFFSetField(out, TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    if (const std::size_t n = l.palette.size() / 3; n > 0)
        TIFFSetField(out, TIFFTAG_COLORMAP, l.palette.data(), l.palette.data() + n, l.palette.data() + 2 * n);
    const int wide = l.tile > 0 ? l.tile : l.width;
    const int high = l.tile > 0 ? l.tile : l.rowsPerStrip;
    if (l.tile > 0) {
        TIFFSetField(out, TIFFTAG_TILEWIDTH, l.tile);
        TIFFSetField(out, TIFFTAG_TILELENGTH, l.tile);
    } else {
        TIFFSetField(out, TIFFTAG_ROWSPERSTRIP, l.rowsPerStrip);
    }
    const int inRow = l.planes ? 1 : l.samples;
    const auto rowBytes = static_cast<std::size_t>((wide * inRow * l.bits + 7) / 8);
    for (int plane = 0; plane < (l.planes ? l.samples : 1); ++plane)
        for (int top = 0; top < l.height; top += high)
            for (int left = 0; left < l.width; left += wide) {
                std::string block;
                const int rows = l.tile > 0 ? high : std::min(high, l.height - top);
                for (int y = top; y < top + rows; ++y) {
                    std::string row(rowBytes, '\0');
                    for (int x = left; x < std::min(left + wide, l.width) && y < l.height; ++x)
                        for (int s = 0; s < inRow; ++s)
                            putSample(row, static_cast<std::size_t>((x - left) * inRow + s), l.bits,
                                      value(x, y, plane + s));
                    block += row;
                }
                const auto size = static_cast<tmsize_t>(block.size());
                if (l.tile > 0)
                    TIFFWriteEncodedTile(out,
                                         TIFFComputeTile(out, static_cast<std::uint32_t>(left),
                                                         static_cast<std::uint32_t>(top), 0,
                                                         static_cast<std::uint16_t>(plane)),
                                         block.data(), size);
                else
                    TIFFWriteEncodedStrip(
                        out, TIFFComputeStrip(out, static_cast<std::uint32_t>(top), static_cast<std::uint16_t>(plane)),
                        block.data(), size);
            }
    TIFFClose(out);
    return folder.read("t.tif");
}

std::string cmykJpeg(int width, int height, bool adobe, const std::function<unsigned(int, int, int)>& ink) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &data, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = 4;
    info.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    info.write_Adobe_marker = adobe ? TRUE : FALSE;
    jpeg_start_compress(&info, TRUE);
    std::string row(static_cast<std::size_t>(width) * 4, '\0');
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            for (int i = 0; i < 4; ++i)
                row[static_cast<std::size_t>(4 * x + i)] = static_cast<char>(adobe ? 255 - ink(x, y, i) : ink(x, y, i));
        auto* bytes = reinterpret_cast<JSAMPLE*>(row.data());
        jpeg_write_scanlines(&info, &bytes, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string bytes(reinterpret_cast<const char*>(data), size);
    std::free(data);
    return bytes;
}

namespace {

/// Appends what a PICT is made of.
class PictWriter {
  public:
    explicit PictWriter(const PictLayout& layout) : layout_(layout), out_(layout.lead, '\0') {}

    void words(std::initializer_list<int> values) {
        for (const int value : values) {
            out_ += static_cast<char>(value >> 8 & 0xff);
            out_ += static_cast<char>(value & 0xff);
        }
    }
    void opcode(int value) {
        if (layout_.version == 1)
            out_ += static_cast<char>(value);
        else if (out_.size() % 2 != 0)
            out_ += '\0';
        if (layout_.version == 2)
            words({value});
    }
    void mapFormat(int bits) {
        const bool direct = bits > 8;
        words({0,
               bits == 16   ? 3
               : bits == 32 ? 4
                            : 0,
               0, 0, 72, 0, 72, 0, direct ? 16 : 0, bits, direct ? 3 : 1, bits == 16 ? 5 : 8, 0, 0, 0, 0, 0, 0});
        if (direct)
            return;
        words({0, 0, 0, 255});
        for (int i = 0; i < 256; ++i)
            words({i, i * 257, i * 257, i * 257});
    }
    /// Runs of one literal byte: poorly packed, but rightly.
    void packedRow(const std::string& row, std::size_t rowBytes, std::size_t unit) {
        if (rowBytes < 8) {
            out_ += row;
            return;
        }
        const auto size = static_cast<int>(row.size() + row.size() / unit);
        if (rowBytes > 250)
            words({size});
        else
            out_ += static_cast<char>(size);
        for (std::size_t i = 0; i < row.size(); i += unit)
            out_.append(1, '\0').append(row, i, unit);
    }
    std::string done() {
        opcode(0xff);
        return out_;
    }

  private:
    PictLayout layout_;
    std::string out_;
};

/// A row as it is before it is packed: pixels of 32 bits stand in planes.
std::string rowOf(const Picture& picture, int y, int bits) {
    const int width = picture.Width();
    const auto pixels = static_cast<std::size_t>(width);
    std::string row(bits == 1    ? (pixels + 15) / 16 * 2
                    : bits == 32 ? 3 * pixels
                                 : pixels * static_cast<std::size_t>(bits) / 8,
                    '\0');
    for (int x = 0; x < width; ++x) {
        const Color c = picture.pixel(x, y);
        const auto at = static_cast<std::size_t>(x);
        if (bits == 1) {
            putSample(row, at, 1, c.red == 0 ? 1 : 0);
        } else if (bits == 8) {
            row[at] = static_cast<char>(c.red);
        } else if (bits == 16) {
            const int word = c.red >> 3 << 10 | c.green >> 3 << 5 | c.blue >> 3;
            row[2 * at] = static_cast<char>(word >> 8);
            row[2 * at + 1] = static_cast<char>(word);
        } else {
            row[at] = static_cast<char>(c.red);
            row[pixels + at] = static_cast<char>(c.green);
            row[2 * pixels + at] = static_cast<char>(c.blue);
        }
    }
    return row;
}

} // namespace

std::string pict(const Picture& picture, const PictLayout& l) {
    const int width = picture.Width(), height = picture.Height();
    PictWriter out(l);
    out.words({0, 10, 20, 10 + height * l.scale, 20 + width * l.scale}); // a frame that does not begin at 0
    if (l.version == 2)
        out.words({0x0011, 0x02ff, 0x0c00, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    else
        out.words({0x1101});
    out.opcode(0x01); // clipping region
    out.words({10, 0, 0, 2000, 2000});
    for (int band = 0; band < l.bands; ++band) {
        const int top = height * band / l.bands, bottom = height * (band + 1) / l.bands;
        out.opcode((l.bits > 8 ? 0x9a : 0x98) + (l.masked ? 1 : 0));
        if (l.bits > 8)
            out.words({0, 0xff});
        const int rowBytes = l.bits == 1 ? (width + 15) / 16 * 2 : width * l.bits / 8;
        out.words({rowBytes | (l.bits > 1 ? 0x8000 : 0), top, 0, bottom, width});
        if (l.bits > 1)
            out.mapFormat(l.bits);
        out.words({top, 0, bottom, width});
        out.words({10 + top * l.scale, 20, 10 + bottom * l.scale, 20 + width * l.scale});
        out.words({0});
        if (l.masked)
            out.words({10, top, 0, bottom, width});
        for (int y = top; y < bottom; ++y)
            out.packedRow(rowOf(picture, y, l.bits), static_cast<std::size_t>(rowBytes), l.bits == 16 ? 2 : 1);
    }
    return out.done();
}

} // namespace velmarin::test
