// g++ 12 with the sanitizers takes a string of a computed length for one of any length.
#pragma GCC diagnostic ignored "-Wstringop-overflow"

#include "DictdFixture.h"

#include <algorithm>
#include <stdexcept>

#include <zlib.h>

namespace velmarin::test {

namespace {

std::string littleEndian(std::size_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

/// A number as an index in the dictd format has it.
std::string dictdNumber(std::size_t value) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string digits(1, kDigits[value % 64]);
    for (value /= 64; value > 0; value /= 64)
        digits.insert(digits.begin(), kDigits[value % 64]);
    return digits;
}

/// A gzip file that can be read chunk by chunk.
std::string dictzip(std::string_view text, std::size_t chunkLength, bool withName) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflate could not be set up");
    std::string sizes, body;
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += chunkLength, ++count) {
        std::string piece(text.substr(at, chunkLength));
        std::string packed(piece.size() + 1000, '\0');
        stream.next_in = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_in = static_cast<uInt>(piece.size());
        stream.next_out = reinterpret_cast<Bytef*>(packed.data());
        stream.avail_out = static_cast<uInt>(packed.size());
        deflate(&stream, at + chunkLength < text.size() ? Z_FULL_FLUSH : Z_FINISH);
        packed.resize(packed.size() - stream.avail_out);
        sizes += littleEndian(packed.size());
        body += packed;
    }
    deflateEnd(&stream);
    const std::string table = littleEndian(1) + littleEndian(chunkLength) + littleEndian(count) + sizes;
    // Another program's subfield precedes the table.
    const std::string extra = std::string("ZZ") + littleEndian(3) + "abc" + "RA" + littleEndian(table.size()) + table;
    std::string file("\x1F\x8B\x08", 3);
    file += withName ? '\x0C' : '\x04';
    file += std::string("\0\0\0\0\x02\x03", 6) + littleEndian(extra.size()) + extra;
    if (withName)
        file += std::string("name\0", 5);
    return file + body + std::string(8, '\0');
}

} // namespace

DictdFixture& DictdFixture::entry(std::string word, std::string text) {
    index_ += word + "\t" + dictdNumber(text_.size()) + "\t" + dictdNumber(text.size()) + "\n";
    text_ += text;
    return *this;
}

void DictdFixture::writeTo(const TempFolder& folder, const std::string& name, std::size_t chunkLength) const {
    folder.write(name + ".index", index_);
    if (chunkLength == 0)
        folder.write(name + ".dict", text_);
    else
        folder.write(name + ".dict.dz", dictzip(text_, chunkLength, chunkLength >= 50));
}

} // namespace velmarin::test
