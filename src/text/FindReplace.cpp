#include "text/FindReplace.h"

#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

/// Matches `capitals`, an upper-case form, at `pos` of `text`, ignoring case. Returns the number of bytes of `text`
/// that it takes, which may differ from its own length; 0 if it does not match.
std::size_t matchLength(std::string_view text, std::size_t pos, std::string_view capitals) {
    std::size_t at = pos;
    for (std::size_t i = 0; i < capitals.size();) {
        if (at == text.size())
            return 0;
        if (isAscii(text[at])) {
            if (asciiCapital(text[at]) != capitals[i])
                return 0;
            ++at;
            ++i;
            continue;
        }
        const Utf8Unit found = decodeUtf8(text, at);
        const Utf8Unit wanted = decodeUtf8(capitals, i);
        if (capitalOf(found.value) != wanted.value)
            return 0;
        at += found.length;
        i += wanted.length;
    }
    return at - pos;
}

struct Match {
    std::size_t pos = std::string_view::npos;
    std::size_t length = 0;
};

/// Finds the first match of `capitals`, a non-empty upper-case form, at or after `pos`.
Match findIgnoringCase(std::string_view text, std::size_t pos, std::string_view capitals) {
    const char first = capitals[0];
    // Two ASCII letters are also capitals of letters outside ASCII: I of dotless i, S of long s.
    const bool asciiAlone = isAscii(first) && first != 'I' && first != 'S';
    while (pos < text.size()) {
        const char c = text[pos];
        std::size_t step = 1;
        bool candidate = false;
        if (isAscii(c)) {
            candidate = asciiCapital(c) == first;
        } else if (!asciiAlone) {
            candidate = true;
            step = decodeUtf8(text, pos).length;
        }
        if (candidate)
            if (const std::size_t length = matchLength(text, pos, capitals))
                return {pos, length};
        pos += step;
    }
    return {};
}

} // namespace

std::size_t InStr(std::size_t start, std::string_view text, std::string_view find) {
    if (find.empty())
        return 0;
    const Match match = findIgnoringCase(text, start > 0 ? start - 1 : 0, Uppercase(find));
    return match.length > 0 ? match.pos + 1 : 0;
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    if (find.empty())
        return std::string(text);
    const std::string capitals = Uppercase(find);
    std::string result;
    std::size_t pos = 0;
    for (Match match; (match = findIgnoringCase(text, pos, capitals)).length > 0; pos = match.pos + match.length) {
        result += text.substr(pos, match.pos - pos);
        result += replacement;
    }
    result += text.substr(pos);
    return result;
}

std::string ReplaceAllB(std::string_view text, std::string_view find, std::string_view replacement) {
    if (find.empty())
        return std::string(text);
    std::string result;
    std::size_t pos = 0;
    for (std::size_t at; (at = text.find(find, pos)) != std::string_view::npos; pos = at + find.size()) {
        result += text.substr(pos, at - pos);
        result += replacement;
    }
    result += text.substr(pos);
    return result;
}

} // namespace velmarin
