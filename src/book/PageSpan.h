#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Pages of a scan, counted from 1 in the order of the scan, both ends included.
struct PageSpan {
    int first = 1, last = 1;

    bool has(int page) const { return first <= page && page <= last; }
    friend bool operator==(const PageSpan&, const PageSpan&) = default;
};

/// The last page of a span that reaches to the end.
inline constexpr int kLastPage = 1'000'000'000;

/// Pages that are turned, clockwise.
struct TurnedPages {
    PageSpan pages = {};
    int degrees = 0; ///< 0, 90, 180 or 270

    friend bool operator==(const TurnedPages&, const TurnedPages&) = default;
};

/// The printed number of a page; the pages after it count on (making/PrintedNumbers.h).
struct GivenNumber {
    int page = 1; ///< of the scan, from 1; the first one of two that are cut from it
    std::string number = {};

    friend bool operator==(const GivenNumber&, const GivenNumber&) = default;
};

// As a person writes them. nullopt for what cannot be understood.

/// "1-8,12,1690-"
std::optional<std::vector<PageSpan>> parsePageSpans(std::string_view text);
/// "90" (all pages), "5-9:180", "3:90,7-:270"
std::optional<std::vector<TurnedPages>> parseTurnedPages(std::string_view text);
/// "9=1"
std::optional<GivenNumber> parseGivenNumber(std::string_view text);

} // namespace velmarin
