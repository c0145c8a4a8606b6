#include "view/DecodeJpeg.h"

#include "view/Picture.h"

#include <bit>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include <jpeglib.h>

#include <jerror.h>

namespace velmarin {
namespace {

/// libjpeg keeps the coefficients of a progressive file, six bytes per pixel, until it has read the last scan.
constexpr std::int64_t kMaxProgressivePixels = 250'000'000;
/// A file of a few kilobytes can hold thousands of empty scans, each of which takes time for the whole picture.
constexpr int kMaxScans = 200;

/// Reads one JPEG. Errors of libjpeg leave by longjmp, so functions that call it have no locals with destructors: such
/// state is in members.
class JpegReader {
  public:
    explicit JpegReader(std::string_view bytes) : bytes_(bytes) {
        info_.err = jpeg_std_error(&errors_);
        info_.client_data = this;
        errors_.error_exit = [](j_common_ptr info) {
            JpegReader& self = of(info);
            info->err->format_message(info, self.text_);
            std::longjmp(self.errorExit_, 1);
        };
        errors_.emit_message = [](j_common_ptr info, int level) {
            if (level < 0)
                of(info).noteDamage();
        };
        errors_.output_message = [](j_common_ptr) {};
    }
    ~JpegReader() { jpeg_destroy_decompress(&info_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    DecodedPix read() {
        if (setjmp(errorExit_) != 0)
            return DecodedPix::failed(text_);
        decode();
        if (!sizeFits_)
            return DecodedPix::tooLarge(info_.image_width, info_.image_height);
        if (!pix_)
            return DecodedPix::noMemory();
        if (nothingRead_)
            return DecodedPix::failed("the file ends before the picture begins");
        return {std::move(pix_), damaged_ ? std::string("it is damaged: ") + text_ : std::string()};
    }

  private:
    static JpegReader& of(j_common_ptr info) { return *static_cast<JpegReader*>(info->client_data); }

    void noteDamage() {
        if (errors_.msg_code == JWRN_JPEG_EOF && info_.input_scan_number <= 1 && info_.input_iMCU_row == 0)
            nothingRead_ = true;
        if (!damaged_)
            errors_.format_message(reinterpret_cast<j_common_ptr>(&info_), text_);
        damaged_ = true;
    }

    void decode() {
        jpeg_create_decompress(&info_);
        progress_.progress_monitor = [](j_common_ptr info) {
            JpegReader& self = of(info);
            if (self.info_.input_scan_number > kMaxScans) {
                std::snprintf(self.text_, sizeof self.text_, "it has more than %d scans", kMaxScans);
                std::longjmp(self.errorExit_, 1);
            }
        };
        info_.progress = &progress_;
        jpeg_mem_src(&info_, reinterpret_cast<const unsigned char*>(bytes_.data()),
                     static_cast<unsigned long>(bytes_.size()));
        jpeg_read_header(&info_, TRUE);
        const std::int64_t pixels = std::int64_t{info_.image_width} * info_.image_height;
        sizeFits_ = isPictureSize(info_.image_width, info_.image_height) &&
                    (pixels <= kMaxProgressivePixels || jpeg_has_multiple_scans(&info_) == FALSE);
        if (!sizeFits_)
            return;
        constexpr bool little = std::endian::native == std::endian::little;
        if (info_.num_components == 1)
            info_.out_color_space = JCS_GRAYSCALE;
        else if (info_.num_components == 4)
            info_.out_color_space = JCS_CMYK;
        else
            info_.out_color_space = little ? JCS_EXT_XBGR : JCS_EXT_RGBX;
        pix_ = newPix(static_cast<int>(info_.image_width), static_cast<int>(info_.image_height),
                      info_.num_components == 1 ? 8 : 32);
        if (!pix_)
            return;
        jpeg_start_decompress(&info_);
        while (info_.output_scanline < info_.output_height)
            readLine();
        jpeg_finish_decompress(&info_);
        if (info_.num_components == 1)
            pixEndianByteSwap(pix_.get());
    }

    void readLine() {
        l_uint32* row = pixGetData(pix_.get()) + std::ptrdiff_t{info_.output_scanline} * pixGetWpl(pix_.get());
        auto* bytes = reinterpret_cast<JSAMPLE*>(row);
        if (info_.num_components == 1 && info_.output_width % 4 != 0)
            row[info_.output_width / 4] = 0; // clears the bytes after the last pixel
        jpeg_read_scanlines(&info_, &bytes, 1);
        if (info_.num_components == 4)
            inksToColor(row);
    }

    /// Converts each pixel from four bytes of ink to a color word. Files with Adobe's marker hold inverted ink.
    void inksToColor(l_uint32* row) const {
        for (JDIMENSION x = 0; x < info_.output_width; ++x) {
            unsigned char ink[4];
            std::memcpy(ink, row + x, 4);
            unsigned light[3];
            for (int i = 0; i < 3; ++i) {
                const unsigned color = info_.saw_Adobe_marker ? ink[i] : 255u - ink[i];
                const unsigned black = info_.saw_Adobe_marker ? ink[3] : 255u - ink[3];
                light[i] = (color * black + 127) / 255;
            }
            row[x] = light[0] << 24 | light[1] << 16 | light[2] << 8 | 0xff;
        }
    }

    std::string_view bytes_;
    jpeg_decompress_struct info_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf errorExit_{};
    char text_[JMSG_LENGTH_MAX] = {};
    PixPtr pix_;
    bool sizeFits_ = false;
    bool damaged_ = false;
    bool nothingRead_ = false;
};

} // namespace

DecodedPix decodeJpeg(std::string_view bytes) {
    if (!bytes.starts_with("\xff\xd8"))
        return DecodedPix::failed("its content is not a JPEG picture");
    JpegReader reader(bytes);
    return reader.read();
}

} // namespace velmarin
