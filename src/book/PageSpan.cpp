#include "book/PageSpan.h"

#include "text/StringFields.h"

#include <charconv>

namespace velmarin {

namespace {

std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && value >= 0 && value <= kLastPage ? std::optional(value) : std::nullopt;
}

std::optional<PageSpan> parseSpan(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = wholeNumber(text.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first
                      : dash + 1 == text.size()      ? std::optional(kLastPage)
                                                     : wholeNumber(text.substr(dash + 1));
    if (!first || !last || *first < 1 || *last < *first)
        return std::nullopt;
    return PageSpan{*first, *last};
}

std::optional<TurnedPages> parseTurned(std::string_view text) {
    const std::size_t colon = text.find(':');
    const bool all = colon == std::string_view::npos;
    const auto pages = all ? PageSpan{1, kLastPage} : parseSpan(text.substr(0, colon));
    const auto degrees = wholeNumber(all ? text : text.substr(colon + 1));
    if (!pages || !degrees || *degrees % 90 != 0 || *degrees >= 360)
        return std::nullopt;
    return TurnedPages{*pages, *degrees};
}

/// The parts of a list with commas; empty for an empty list.
template <typename Part>
std::optional<std::vector<Part>> parseList(std::string_view text, std::optional<Part> (*parse)(std::string_view)) {
    std::vector<Part> parts;
    for (const std::string& each : text.empty() ? std::vector<std::string>() : Split(text, ",")) {
        const auto part = parse(each);
        if (!part)
            return std::nullopt;
        parts.push_back(*part);
    }
    return parts;
}

} // namespace

std::optional<std::vector<PageSpan>> parsePageSpans(std::string_view text) {
    return parseList(text, parseSpan);
}

std::optional<std::vector<TurnedPages>> parseTurnedPages(std::string_view text) {
    return parseList(text, parseTurned);
}

std::optional<GivenNumber> parseGivenNumber(std::string_view text) {
    const std::size_t equals = text.find('=');
    const auto page = wholeNumber(text.substr(0, equals));
    if (equals == std::string_view::npos || !page || *page < 1 || equals + 1 == text.size())
        return std::nullopt;
    return GivenNumber{*page, std::string(text.substr(equals + 1))};
}

} // namespace velmarin
