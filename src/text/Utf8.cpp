
#include "text/Utf8.h"

#include <cstdint>
#include <cstring>

namespace velmarin {

std::size_t asciiPrefix(std::string_view text) {
    std::size_t i = 0;
    for (; i + sizeof(std::uint64_t) <= text.size(); i += sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, sizeof word);
        if (word & 0x8080808080808080u)
            break;
    }
    while (i < text.size() && isAscii(text[i]))
        ++i;
    return i;
}

std::size_t wellFormedEnd(std::string_view text, std::size_t from) {
    for (std::size_t pos = from;;) {
        pos += asciiPrefix(text.substr(pos));
        if (pos == text.size())
            return pos;
        const Utf8Unit unit = decodeUtf8(text, pos);
        if (unit.value >= kInvalidByteUnit)
            return pos;
        pos += unit.length;
    }
}

bool isValidUtf8(std::string_view text) {
    return wellFormedEnd(text, 0) == text.size();
}

std::string utf8OfLatin1(std::string_view text) {
    std::string result;
    for (const char c : text)
        appendUtf8(result, static_cast<unsigned char>(c));
    return result;
}

std::string toValidUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = wellFormedEnd(text, pos);
        result += text.substr(pos, end - pos);
        pos = end;
        if (pos < text.size()) {
            appendUtf8(result, 0xFFFD);
            ++pos;
        }
    }
    return result;
}

} // namespace velmarin
