#include "side/DictZip.h"

#include <algorithm>
#include <string_view>

#include <zlib.h>

namespace velmarin {

namespace {

constexpr std::string_view kGzipMagic = "\x1F\x8B\x08";
// Flags of a gzip header.
constexpr unsigned kHasHeaderCrc = 2;
constexpr unsigned kHasExtra = 4;
constexpr unsigned kHasName = 8;
constexpr unsigned kHasComment = 16;
constexpr std::size_t kFixedHeader = 10;
/// The extra field has at most 64 KiB; name and comment are short texts.
constexpr std::size_t kLongestHeader = std::size_t{1} << 18;

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}
unsigned wordAt(std::string_view bytes, std::size_t at) {
    return byteAt(bytes, at) | byteAt(bytes, at + 1) << 8;
}

struct ChunkTable {
    unsigned length = 0;
    std::vector<unsigned> sizes;
};

std::optional<ChunkTable> chunkTable(std::string_view extra) {
    constexpr std::size_t kSubfieldHeader = 4;
    constexpr std::size_t kTableHeader = 6;
    while (extra.size() >= kSubfieldHeader) {
        const std::size_t size = wordAt(extra, 2);
        if (size > extra.size() - kSubfieldHeader)
            return std::nullopt;
        const std::string_view data = extra.substr(kSubfieldHeader, size);
        if (!extra.starts_with("RA")) {
            extra.remove_prefix(kSubfieldHeader + size);
            continue;
        }
        if (size < kTableHeader || wordAt(data, 0) != 1)
            return std::nullopt;
        ChunkTable table{.length = wordAt(data, 2), .sizes = {}};
        const std::size_t count = wordAt(data, 4);
        if (table.length == 0 || size < kTableHeader + 2 * count)
            return std::nullopt;
        for (std::size_t i = 0; i < count; ++i)
            table.sizes.push_back(wordAt(data, kTableHeader + 2 * i));
        return table;
    }
    return std::nullopt;
}

/// The position after the zero that ends a text in the header; npos if there is none.
std::size_t afterText(std::string_view header, std::size_t at) {
    const std::size_t end = at == std::string_view::npos ? at : header.find('\0', at);
    return end == std::string_view::npos ? end : end + 1;
}

} // namespace

std::optional<DictZip> DictZip::open(const FolderItem& file) {
    auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return std::nullopt;
    DictZip zip(std::move(*opened));
    if (!zip.readHeader())
        return std::nullopt;
    return zip;
}

bool DictZip::readHeader() {
    std::string header(kLongestHeader, '\0');
    header.resize(file_.readOrRaise(0, header.data(), header.size()));
    const std::string_view bytes = header;
    if (!bytes.starts_with(kGzipMagic))
        return true;
    if (bytes.size() < kFixedHeader + 2 || (byteAt(bytes, 3) & kHasExtra) == 0)
        return false;
    const unsigned flags = byteAt(bytes, 3);
    const std::size_t extraSize = wordAt(bytes, kFixedHeader);
    std::size_t at = kFixedHeader + 2;
    if (extraSize > bytes.size() - at)
        return false;
    const auto table = chunkTable(bytes.substr(at, extraSize));
    if (!table)
        return false;
    at += extraSize;
    if ((flags & kHasName) != 0)
        at = afterText(bytes, at);
    if ((flags & kHasComment) != 0)
        at = afterText(bytes, at);
    if (at == std::string_view::npos)
        return false;
    if ((flags & kHasHeaderCrc) != 0)
        at += 2;
    chunkLength_ = table->length;
    chunkAt_.push_back(at);
    for (const unsigned size : table->sizes)
        chunkAt_.push_back(chunkAt_.back() + size);
    return true;
}

std::optional<std::string> DictZip::chunk(std::size_t number) const {
    std::string packed(chunkAt_[number + 1] - chunkAt_[number], '\0');
    if (file_.readOrRaise(chunkAt_[number], packed.data(), packed.size()) != packed.size())
        return std::nullopt;
    std::string text(chunkLength_, '\0');
    z_stream stream{};
    constexpr int kNoHeader = -MAX_WBITS;
    if (inflateInit2(&stream, kNoHeader) != Z_OK)
        return std::nullopt;
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const int result = inflate(&stream, Z_SYNC_FLUSH);
    text.resize(text.size() - stream.avail_out);
    inflateEnd(&stream);
    if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
        return std::nullopt;
    return text;
}

std::optional<std::string> DictZip::read(std::uint64_t offset, std::uint64_t size) const {
    if (size > kLongestPiece)
        return std::nullopt;
    std::string text;
    if (chunkLength_ == 0) {
        text.resize(size);
        if (file_.readOrRaise(offset, text.data(), size) != size)
            return std::nullopt;
        return text;
    }
    std::uint64_t skip = offset % chunkLength_;
    for (std::uint64_t number = offset / chunkLength_; text.size() < size; ++number, skip = 0) {
        if (number + 1 >= chunkAt_.size())
            return std::nullopt;
        const auto piece = chunk(number);
        if (!piece || piece->size() <= skip)
            return std::nullopt;
        text.append(*piece, skip, size - text.size());
        // Only the last chunk of a file is shorter than the others.
        if (piece->size() < chunkLength_ && text.size() < size)
            return std::nullopt;
    }
    return text;
}

} // namespace velmarin
