#include "scan/TiffPages.h"

#include "files/ReadOnlyFile.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <set>
#include <string_view>

#include <fcntl.h>
#include <tiffio.h>

namespace velmarin {

namespace {

constexpr std::uint64_t kMostPageBytes = std::uint64_t{1} << 30;

struct TiffCloser {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffFile = std::unique_ptr<TIFF, TiffCloser>;
using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

int ignoreMessage(TIFF*, void*, const char*, const char*, va_list) {
    return 1;
}

/// Options that keep libtiff quiet and its allocations small.
Options quietOptions() {
    Options options(TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (options) {
        TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(kMostPageBytes));
        TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &ignoreMessage, nullptr);
        TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &ignoreMessage, nullptr);
    }
    return options;
}

/// A file that libtiff reads. It is not mapped: a file that shrinks meanwhile must not end the program.
class Source {
  public:
    explicit Source(ReadOnlyFile file) : file_(std::move(file)), size_(file_.stamp().size) {
        if (const Options options = quietOptions())
            tiff_.reset(TIFFClientOpenExt(
                "scan", "rm", this, &Source::read, [](thandle_t, void*, tmsize_t) -> tmsize_t { return 0; },
                &Source::seek, [](thandle_t) { return 0; },
                [](thandle_t handle) -> toff_t { return static_cast<Source*>(handle)->size_; }, nullptr, nullptr,
                options.get()));
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    TIFF* tiff() const { return tiff_.get(); }
    std::uint64_t size() const { return size_; }
    /// Whether the disk failed: what was read until then is not all.
    bool failed() const { return failed_; }

  private:
    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        auto& self = *static_cast<Source*>(handle);
        const auto got = self.file_.read(self.at_, static_cast<char*>(to), static_cast<std::size_t>(count));
        self.failed_ = self.failed_ || !got;
        self.at_ += got.value_or(0);
        return got ? static_cast<tmsize_t>(*got) : -1;
    }
    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        auto& self = *static_cast<Source*>(handle);
        const std::uint64_t from = whence == SEEK_CUR ? self.at_ : whence == SEEK_END ? self.size_ : 0;
        return self.at_ = from + offset;
    }

    ReadOnlyFile file_;
    std::uint64_t size_, at_ = 0;
    bool failed_ = false;
    TiffFile tiff_;
};

/// A file in memory that libtiff writes.
struct Target {
    std::string bytes;
    std::uint64_t at = 0;

    static Target& of(thandle_t handle) { return *static_cast<Target*>(handle); }
    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        Target& self = of(handle);
        if (self.at >= self.bytes.size())
            return 0;
        const std::size_t got = self.bytes.copy(static_cast<char*>(to), static_cast<std::size_t>(count), self.at);
        self.at += got;
        return static_cast<tmsize_t>(got);
    }
    static tmsize_t write(thandle_t handle, void* from, tmsize_t count) {
        Target& self = of(handle);
        const auto size = static_cast<std::size_t>(count);
        if (self.at + size > kMostPageBytes + (1 << 20))
            return -1;
        self.bytes.resize(std::max<std::size_t>(self.bytes.size(), self.at + size));
        std::memcpy(self.bytes.data() + self.at, from, size);
        self.at += size;
        return count;
    }
    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        Target& self = of(handle);
        const std::uint64_t from = whence == SEEK_CUR ? self.at : whence == SEEK_END ? self.bytes.size() : 0;
        return self.at = from + offset;
    }
    TiffFile open(bool bigEndian) {
        const Options options = quietOptions();
        return TiffFile(options ? TIFFClientOpenExt(
                                      "page", bigEndian ? "wb" : "wl", this, &Target::read, &Target::write,
                                      &Target::seek, [](thandle_t) { return 0; },
                                      [](thandle_t handle) -> toff_t { return of(handle).bytes.size(); }, nullptr,
                                      nullptr, options.get())
                                : nullptr);
    }
};

template <typename Value> void copyTags(TIFF* from, TIFF* to, std::initializer_list<std::uint32_t> tags) {
    for (const std::uint32_t tag : tags) {
        Value value{};
        if (TIFFGetField(from, tag, &value) == 1)
            TIFFSetField(to, tag, value);
    }
}

void copyArrays(TIFF* from, TIFF* to) {
    std::uint16_t one = 0, other = 0, *shorts[3] = {};
    std::uint32_t count = 0;
    void* bytes = nullptr;
    float* floats = nullptr;
    if (TIFFGetField(from, TIFFTAG_COLORMAP, &shorts[0], &shorts[1], &shorts[2]) == 1)
        TIFFSetField(to, TIFFTAG_COLORMAP, shorts[0], shorts[1], shorts[2]);
    if (TIFFGetField(from, TIFFTAG_EXTRASAMPLES, &one, &shorts[0]) == 1)
        TIFFSetField(to, TIFFTAG_EXTRASAMPLES, one, shorts[0]);
    if (TIFFGetField(from, TIFFTAG_YCBCRSUBSAMPLING, &one, &other) == 1)
        TIFFSetField(to, TIFFTAG_YCBCRSUBSAMPLING, one, other);
    if (TIFFGetField(from, TIFFTAG_REFERENCEBLACKWHITE, &floats) == 1)
        TIFFSetField(to, TIFFTAG_REFERENCEBLACKWHITE, floats);
    if (TIFFGetField(from, TIFFTAG_JPEGTABLES, &count, &bytes) == 1 && count > 0)
        TIFFSetField(to, TIFFTAG_JPEGTABLES, count, bytes);
}

/// All that a reader needs to know of the picture. The compression comes first, because it adds tags of its own.
void copyDirectory(TIFF* from, TIFF* to) {
    copyTags<std::uint16_t>(from, to,
                            {TIFFTAG_COMPRESSION, TIFFTAG_BITSPERSAMPLE, TIFFTAG_SAMPLESPERPIXEL, TIFFTAG_PHOTOMETRIC,
                             TIFFTAG_FILLORDER, TIFFTAG_ORIENTATION, TIFFTAG_PLANARCONFIG, TIFFTAG_RESOLUTIONUNIT,
                             TIFFTAG_SAMPLEFORMAT, TIFFTAG_PREDICTOR, TIFFTAG_INKSET});
    copyTags<std::uint32_t>(from, to,
                            {TIFFTAG_IMAGEWIDTH, TIFFTAG_IMAGELENGTH, TIFFTAG_ROWSPERSTRIP, TIFFTAG_TILEWIDTH,
                             TIFFTAG_TILELENGTH, TIFFTAG_GROUP3OPTIONS, TIFFTAG_GROUP4OPTIONS});
    copyTags<float>(from, to, {TIFFTAG_XRESOLUTION, TIFFTAG_YRESOLUTION});
    copyArrays(from, to);
}

/// Copies the strips or tiles as they are. False if one cannot be read, or all are longer than the file: then several
/// are the same bytes, as no honest file has it.
bool copyData(const Source& source, TIFF* to) {
    TIFF* from = source.tiff();
    const bool tiled = TIFFIsTiled(from) != 0;
    const std::uint32_t count = tiled ? TIFFNumberOfTiles(from) : TIFFNumberOfStrips(from);
    std::uint64_t all = 0;
    std::string bytes;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t size = TIFFGetStrileByteCount(from, i);
        all += size;
        if (size == 0 || size > kMostPageBytes || all > source.size())
            return false;
        bytes.resize(size);
        const auto length = static_cast<tmsize_t>(size);
        const tmsize_t got =
            tiled ? TIFFReadRawTile(from, i, bytes.data(), length) : TIFFReadRawStrip(from, i, bytes.data(), length);
        if (got != length)
            return false;
        const tmsize_t put =
            tiled ? TIFFWriteRawTile(to, i, bytes.data(), length) : TIFFWriteRawStrip(to, i, bytes.data(), length);
        if (put != length)
            return false;
    }
    return count > 0;
}

template <typename Value> Value tag(TIFF* tiff, std::uint32_t which) {
    Value value{};
    return TIFFGetFieldDefaulted(tiff, which, &value) == 1 ? value : Value{};
}

} // namespace

std::vector<std::uint64_t> tiffPages(const FolderItem& file, std::size_t most) {
    auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return {};
    const Source source(std::move(*opened));
    std::vector<std::uint64_t> pages;
    std::set<std::uint64_t> seen;
    for (bool more = source.tiff() != nullptr; more && seen.size() < most;) {
        const std::uint64_t offset = TIFFCurrentDirOffset(source.tiff());
        if (!seen.insert(offset).second)
            break;
        constexpr std::uint32_t kNoPages = FILETYPE_REDUCEDIMAGE | FILETYPE_MASK;
        if ((tag<std::uint32_t>(source.tiff(), TIFFTAG_SUBFILETYPE) & kNoPages) == 0)
            pages.push_back(offset);
        const bool last = TIFFLastDirectory(source.tiff()) == 1;
        more = !last && TIFFReadDirectory(source.tiff()) == 1;
        if (!last && !more)
            pages.push_back(source.size());
    }
    if (source.failed())
        pages.clear();
    return pages;
}

std::optional<TiffPage> tiffPage(const FolderItem& file, std::uint64_t offset) {
    auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return std::nullopt;
    const Source source(std::move(*opened));
    if (source.tiff() == nullptr || TIFFSetSubDirectory(source.tiff(), offset) != 1)
        return std::nullopt;
    Target target;
    TiffFile written = target.open(TIFFIsBigEndian(source.tiff()) != 0);
    if (!written)
        return std::nullopt;
    copyDirectory(source.tiff(), written.get());
    if (!copyData(source, written.get()) || TIFFWriteDirectory(written.get()) != 1)
        return std::nullopt;
    written.reset();
    const auto compression = tag<std::uint16_t>(source.tiff(), TIFFTAG_COMPRESSION);
    const bool ink = tag<std::uint16_t>(source.tiff(), TIFFTAG_BITSPERSAMPLE) == 1 &&
                     tag<std::uint16_t>(source.tiff(), TIFFTAG_SAMPLESPERPIXEL) == 1;
    TiffPage page{.bytes = std::move(target.bytes)};
    page.jpeg = compression == COMPRESSION_JPEG;
    page.kept = page.jpeg || (ink && compression == COMPRESSION_CCITTFAX4);
    return page;
}

} // namespace velmarin
