#include "text/LetterCase.h"

#include "text/Utf8.h"

#include <algorithm>
#include <utf8proc.h>

namespace velmarin {

namespace {

/// Yields the bytes of a text's upper-case form one by one, without building it.
class CapitalBytes {
  public:
    explicit CapitalBytes(std::string_view text) : text_(text) {}

    static constexpr int kEnd = -1;

    int next() {
        if (taken_ == filled_ && !fill())
            return kEnd;
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
        if (x == CapitalBytes::kEnd)
            return 0;
    }
}

} // namespace

char32_t capitalOf(char32_t unit) {
    if (unit >= kInvalidByteUnit)
        return unit;
    return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(unit)));
}

std::string Lowercase(std::string_view text) {
    std::string small;
    small.reserve(text.size());
    char bytes[4];
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        at += unit.length;
        const char32_t letter =
            unit.value >= kInvalidByteUnit
                ? unit.value
                : static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(unit.value)));
        small.append(bytes, encodeUtf8(letter, bytes));
    }
    return small;
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

} // namespace velmarin
