#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmarin {

/// One step through a text that may contain bytes that are not UTF-8.
struct Utf8Unit {
    /// A code point, or `kInvalidByteUnit + byte` for a byte outside a well-formed sequence.
    char32_t value;
    /// The number of bytes, 1 to 4; 1 for such a byte.
    std::size_t length;
};

inline constexpr char32_t kInvalidByteUnit = 0x110000;

/// The unit at `pos`, which must be inside `text`. Overlong forms, surrogates and values above U+10FFFF are not
/// well-formed (the table of well-formed byte sequences in the Unicode Standard, chapter 3).
inline Utf8Unit decodeUtf8(std::string_view text, std::size_t pos) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[pos + i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const Utf8Unit invalid{kInvalidByteUnit + lead, 1};
    if (lead < 0xC2 || lead > 0xF4)
        return invalid;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() - pos < length)
        return invalid;
    const unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < lowest || byte(1) > highest)
        return invalid;
    char32_t value = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return invalid;
        value = value << 6 | (byte(i) & 0x3Fu);
    }
    return {value, length};
}

/// Writes the unit's bytes to `out`, which must have room for 4, and returns their number.
inline std::size_t encodeUtf8(char32_t unit, char* out) {
    if (unit >= kInvalidByteUnit) {
        out[0] = static_cast<char>(unit - kInvalidByteUnit);
        return 1;
    }
    if (unit < 0x80) {
        out[0] = static_cast<char>(unit);
        return 1;
    }
    const std::size_t length = unit < 0x800 ? 2 : unit < 0x10000 ? 3 : 4;
    for (std::size_t i = length - 1; i > 0; --i) {
        out[i] = static_cast<char>(0x80 | (unit & 0x3F));
        unit >>= 6;
    }
    out[0] = static_cast<char>((0xF00u >> length & 0xF0) | unit);
    return length;
}

inline void appendUtf8(std::string& text, char32_t unit) {
    char bytes[4];
    text.append(bytes, encodeUtf8(unit, bytes));
}

inline bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

inline char asciiCapital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

/// The length of the ASCII run at the start of `text`.
std::size_t asciiPrefix(std::string_view text);

/// The end of the well-formed run of `text` that starts at `from`; `from` itself if its byte is not well-formed.
std::size_t wellFormedEnd(std::string_view text, std::size_t from);

/// Whether `text` is well-formed UTF-8.
bool isValidUtf8(std::string_view text);

/// The UTF-8 form of a text in ISO 8859-1.
std::string utf8OfLatin1(std::string_view text);

/// `text` with each byte outside a well-formed sequence replaced by U+FFFD.
std::string toValidUtf8(std::string_view text);

} // namespace velmarin
