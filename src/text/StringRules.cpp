#include "text/StringRules.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <utf8proc.h>

namespace velmarin {

namespace {

/// The length of the ASCII run at the start of `text`.
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

/// Yields the bytes of a text's upper-case form one by one, without building it.
class CapitalBytes {
  public:
    explicit CapitalBytes(std::string_view text) : text_(text) {}

    static constexpr int end = -1;

    int next() {
        if (taken_ == filled_ && !fill())
            return end;
        return static_cast<unsigned char>(bytes_[taken_++]);
    }

  private:
    bool fill() {
        if (pos_ == text_.size())
            return false;
        const Utf8Unit unit = decodeUtf8(text_, pos_);
        pos_ += unit.length;
        filled_ = encodeUtf8(capitalOf(unit.value), bytes_);
        taken_ = 0;
        return true;
    }

    std::string_view text_;
    std::size_t pos_ = 0;
    char bytes_[4];
    std::size_t filled_ = 0;
    std::size_t taken_ = 0;
};

int compareBeyondAscii(std::string_view a, std::string_view b) {
    CapitalBytes left(a), right(b);
    for (;;) {
        const int x = left.next(), y = right.next();
        if (x != y)
            return x < y ? -1 : 1;
        if (x == CapitalBytes::end)
            return 0;
    }
}

/// Composes a well-formed text; `option` adds another operation.
std::string compose(std::string_view text, utf8proc_option_t option) {
    utf8proc_uint8_t* composed = nullptr;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | option);
    const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &composed, options);
    if (length < 0)
        throw std::bad_alloc();
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(composed, &std::free);
    return {reinterpret_cast<const char*>(composed), static_cast<std::size_t>(length)};
}

/// The end of the well-formed run of `text` that starts at `from`; `from` itself if its byte is not well-formed.
std::size_t wellFormedEnd(std::string_view text, std::size_t from) {
    for (std::size_t pos = from;;) {
        pos += asciiPrefix(text.substr(pos));
        if (pos == text.size())
            return pos;
        const Utf8Unit unit = decodeUtf8(text, pos);
        if (unit.value >= invalidByteUnit)
            return pos;
        pos += unit.length;
    }
}

/// Builds a text from `text`: `append` adds a form of each well-formed run to the result, and other bytes are copied.
template <class Append> std::string withRuns(std::string_view text, Append append) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = wellFormedEnd(text, pos);
        if (end == pos) {
            result += text[pos++];
            continue;
        }
        append(result, text.substr(pos, end - pos));
        pos = end;
    }
    return result;
}

} // namespace

char32_t capitalOf(char32_t unit) {
    if (unit >= invalidByteUnit)
        return unit;
    return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(unit)));
}

std::string Uppercase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        if (isAscii(text[pos])) {
            result += asciiCapital(text[pos++]);
            continue;
        }
        const Utf8Unit unit = decodeUtf8(text, pos);
        appendUtf8(result, capitalOf(unit.value));
        pos += unit.length;
    }
    return result;
}

int compareStrings(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (!isAscii(a[i]) || !isAscii(b[i]))
            return compareBeyondAscii(a.substr(i), b.substr(i));
        const char x = asciiCapital(a[i]), y = asciiCapital(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool equalStrings(std::string_view a, std::string_view b) {
    return compareStrings(a, b) == 0;
}

bool ListingOrder::operator()(std::string_view a, std::string_view b) const {
    const int order = compareStrings(a, b);
    return order != 0 ? order < 0 : a < b;
}

std::string foldedFileName(std::string_view name) {
    return withRuns(name, [](std::string& result, std::string_view run) {
        if (asciiPrefix(run) == run.size()) {
            for (const char c : run)
                result += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
        } else {
            result += compose(run, UTF8PROC_CASEFOLD);
        }
    });
}

std::string composedForm(std::string_view text) {
    return withRuns(text, [](std::string& result, std::string_view run) {
        if (asciiPrefix(run) == run.size())
            result += run;
        else
            result += compose(run, {});
    });
}

bool isValidUtf8(std::string_view text) {
    return wellFormedEnd(text, 0) == text.size();
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
