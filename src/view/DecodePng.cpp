#include "view/DecodePng.h"

#include "view/Picture.h"

#include <bit>
#include <csetjmp>
#include <cstring>

#include <png.h>

namespace velmarin {
namespace {

/// The most memory that one chunk may take besides the picture.
constexpr png_alloc_size_t kMaxChunkMemory = 16 << 20;

/// Reads one PNG. Errors of libpng leave by longjmp, so functions that call it have no locals with destructors: such
/// state is in members.
class PngReader {
  public:
    explicit PngReader(std::string_view bytes) : bytes_(bytes) {
        png_ = png_create_read_struct(
            PNG_LIBPNG_VER_STRING, this,
            [](png_structp png, png_const_charp text) {
                auto* self = static_cast<PngReader*>(png_get_error_ptr(png));
                std::strncpy(self->text_, text, sizeof self->text_ - 1);
                std::longjmp(self->errorExit_, 1);
            },
            [](png_structp, png_const_charp) {});
        info_ = png_ != nullptr ? png_create_info_struct(png_) : nullptr;
    }
    ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    DecodedPix read() {
        if (info_ == nullptr)
            return DecodedPix::noMemory();
        if (setjmp(errorExit_) != 0)
            return DecodedPix::failed(text_);
        readHeader();
        if (!isPictureSize(width_, height_))
            return DecodedPix::tooLarge(width_, height_);
        setConversions();
        pix_ = newPix(static_cast<int>(width_), static_cast<int>(height_), depth_);
        if (!pix_)
            return DecodedPix::noMemory();
        readPixels();
        finish();
        return {std::move(pix_), {}};
    }

  private:
    void readHeader() {
        png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        // All but palette, transparency and pixels is passed over. To libpng a chunk that exceeds a limit is a benign
        // error, which it reports after it has taken the memory.
        png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
        png_set_chunk_malloc_max(png_, kMaxChunkMemory);
        png_set_read_fn(png_, this, [](png_structp png, png_bytep to, std::size_t count) {
            auto* self = static_cast<PngReader*>(png_get_io_ptr(png));
            if (count > self->bytes_.size() - self->at_)
                png_error(png, "the file ends within the picture");
            std::memcpy(to, self->bytes_.data() + self->at_, count);
            self->at_ += count;
        });
        png_read_info(png_, info_);
        png_get_IHDR(png_, info_, &width_, &height_, &bits_, &colorType_, nullptr, nullptr, nullptr);
    }

    /// Whether the palette is black and white, as many programs write it for 1-bit pages. Sets `inverted_`.
    bool readInkPalette() {
        png_colorp palette = nullptr;
        int size = 0;
        if (bits_ != 1 || png_get_PLTE(png_, info_, &palette, &size) == 0 || size != 2)
            return false;
        auto is = [](const png_color& c, int value) { return c.red == value && c.green == value && c.blue == value; };
        inverted_ = is(palette[0], 255) && is(palette[1], 0);
        return inverted_ || (is(palette[0], 0) && is(palette[1], 255));
    }

    /// Makes libpng return rows of 1 bit, of 8 bits, or of words in a picture's byte order.
    void setConversions() {
        const bool transparent =
            (colorType_ & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
        if (!transparent && (colorType_ == PNG_COLOR_TYPE_GRAY || colorType_ == PNG_COLOR_TYPE_PALETTE)) {
            if (bits_ == 1 && (colorType_ == PNG_COLOR_TYPE_GRAY || readInkPalette())) {
                depth_ = 1;
                return;
            }
        }
        if (bits_ == 16)
            png_set_scale_16(png_);
        if (colorType_ == PNG_COLOR_TYPE_GRAY && !transparent) {
            depth_ = 8;
            png_set_expand_gray_1_2_4_to_8(png_);
            return;
        }
        depth_ = 32;
        blended_ = transparent;
        grey_ = (colorType_ & PNG_COLOR_MASK_COLOR) == 0 || colorType_ == PNG_COLOR_TYPE_PALETTE;
        png_set_expand(png_);
        png_set_gray_to_rgb(png_);
        constexpr bool little = std::endian::native == std::endian::little;
        if (!transparent)
            png_set_filler(png_, 0xff, little ? PNG_FILLER_BEFORE : PNG_FILLER_AFTER);
        else if (little)
            png_set_swap_alpha(png_);
        if (little)
            png_set_bgr(png_);
    }

    void readPixels() {
        const int passes = png_set_interlace_handling(png_);
        png_read_update_info(png_, info_);
        // After these conversions a row is as long as the picture's.
        if (png_get_rowbytes(png_, info_) > std::size_t{4} * static_cast<std::size_t>(pixGetWpl(pix_.get())))
            png_error(png_, "its rows are longer than they should be");
        for (int pass = 0; pass < passes; ++pass)
            for (png_uint_32 y = 0; y < height_; ++y)
                png_read_row(
                    png_,
                    reinterpret_cast<png_bytep>(pixGetData(pix_.get()) + std::ptrdiff_t{y} * pixGetWpl(pix_.get())),
                    nullptr);
        png_read_end(png_, nullptr);
    }

    void finish() {
        if (depth_ != 32)
            pixEndianByteSwap(pix_.get());
        if (depth_ == 1 && !inverted_)
            pixInvert(pix_.get(), pix_.get());
        if (blended_)
            blendOverWhite(pix_.get());
        if (grey_)
            pix_ = inSmallestDepth(std::move(pix_));
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    std::jmp_buf errorExit_{};
    char text_[200] = {};
    png_uint_32 width_ = 0, height_ = 0;
    int bits_ = 0, colorType_ = 0;
    int depth_ = 32;
    bool inverted_ = false; ///< 1 bit: 0 is already paper
    bool blended_ = false;  ///< has alpha, to be laid over white
    bool grey_ = false;     ///< 32 bits, but possibly all grey
    PixPtr pix_;
};

} // namespace

DecodedPix decodePng(std::string_view bytes) {
    if (!bytes.starts_with("\x89PNG\r\n\x1a\n"))
        return DecodedPix::failed("its content is not a PNG picture");
    PngReader reader(bytes);
    return reader.read();
}

} // namespace velmarin
