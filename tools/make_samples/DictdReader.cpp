#include "make_samples/DictdReader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <stdexcept>

#include <zlib.h>

#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t mostBytes = std::size_t{256} << 20;

/// The bytes of a file, unpacked if it is a gzip file.
std::string unpacked(const std::filesystem::path& path) {
    const std::unique_ptr<gzFile_s, int (*)(gzFile)> file(gzopen(path.c_str(), "rb"), gzclose);
    if (!file)
        throw std::runtime_error("cannot open " + path.string());
    gzbuffer(file.get(), 1 << 17);
    std::string bytes;
    std::vector<char> buffer(1 << 20);
    for (;;) {
        const int got = gzread(file.get(), buffer.data(), static_cast<unsigned>(buffer.size()));
        int error = Z_OK;
        if (got < 0 || (got == 0 && (gzerror(file.get(), &error), error != Z_OK)))
            throw std::runtime_error("cannot unpack " + path.string());
        if (got == 0)
            return bytes;
        if (bytes.size() + static_cast<std::size_t>(got) > mostBytes)
            throw std::runtime_error(path.string() + " is larger than 256 MiB");
        bytes.append(buffer.data(), static_cast<std::size_t>(got));
    }
}

int digitValue(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

std::optional<std::uint32_t> base64Number(std::string_view digits) {
    std::uint64_t value = 0;
    for (const char c : digits) {
        const int digit = digitValue(c);
        if (digit < 0)
            return std::nullopt;
        value = value * 64 + static_cast<std::uint64_t>(digit);
        if (value > UINT32_MAX)
            return std::nullopt;
    }
    return digits.empty() ? std::nullopt : std::optional(static_cast<std::uint32_t>(value));
}

std::optional<DictdEntry> entryOf(std::string_view line) {
    const auto first = line.find('\t');
    const auto second = first == std::string_view::npos ? first : line.find('\t', first + 1);
    if (second == std::string_view::npos)
        return std::nullopt;
    std::string_view length = line.substr(second + 1);
    length = length.substr(0, length.find('\t'));
    const auto offsetValue = base64Number(line.substr(first + 1, second - first - 1));
    const auto lengthValue = base64Number(length);
    if (!offsetValue || !lengthValue)
        return std::nullopt;
    return DictdEntry{std::string(line.substr(0, first)), *offsetValue, *lengthValue};
}

bool describesTheDatabase(std::string_view headword) {
    return headword.starts_with("00-") || headword.starts_with("00database");
}

} // namespace

DictdReader::DictdReader(const std::filesystem::path& folder, const std::string& name) {
    const auto packed = folder / (name + ".dict.dz");
    text_ = unpacked(std::filesystem::exists(packed) ? packed : folder / (name + ".dict"));
    const auto indexPath = folder / (name + ".index");
    const std::string index = unpacked(indexPath);
    std::size_t number = 0;
    for (const std::string_view line : linesOf(index)) {
        ++number;
        auto entry = entryOf(line);
        const std::string place = indexPath.string() + ", line " + std::to_string(number);
        if (!entry)
            throw std::runtime_error(place + " is not a headword, an offset and a length");
        if (std::uint64_t{entry->offset} + entry->length > text_.size())
            throw std::runtime_error(place + " lies outside the text");
        if (!describesTheDatabase(entry->headword))
            entries_.push_back(std::move(*entry));
    }
}

std::string_view DictdReader::text(const DictdEntry& entry) const {
    return std::string_view(text_).substr(entry.offset, entry.length);
}

std::vector<std::string_view> DictdReader::articles() const {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> places;
    places.reserve(entries_.size());
    for (const DictdEntry& entry : entries_)
        places.emplace_back(entry.offset, entry.length);
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    std::vector<std::string_view> texts;
    texts.reserve(places.size());
    for (const auto& [offset, length] : places)
        texts.push_back(std::string_view(text_).substr(offset, length));
    return texts;
}

} // namespace velmarin
