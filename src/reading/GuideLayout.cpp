#include "reading/GuideLayout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace velmarin {

namespace {

/// A line of a head with more parts is text of the columns.
constexpr std::size_t kMostParts = 9;
/// How far, of the page's height, a line may be from where the guide words of the book are.
constexpr double kLineReach = 0.06;
/// How far, of the page's width, a number may be from where numbers are.
constexpr double kNumberReach = 0.06;
/// How far, of the page's height, parts of one line are from each other.
constexpr double kSameLine = 0.012;
constexpr std::size_t kLeastNumbers = 3; // that show a place
constexpr std::size_t kLeastLetters = 4; // of a word that is not a misread number

double median(std::vector<double> values, double otherwise) {
    if (values.empty())
        return otherwise;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Where a text occurs in a book.
struct Occurrence {
    std::size_t count = 0, begin = 0, end = 0;
};

bool isRunningTitle(const std::string& letters, const Occurrence& found, std::size_t pages) {
    if (found.count < 4)
        return false;
    const bool heading = letters.size() == 1;
    const bool everywhere = found.count * 10 >= pages * 3;
    const bool spread = found.count * 20 >= pages && found.end - found.begin > 2 * found.count;
    return heading || everywhere || spread;
}

/// The number of letters to change, up to `limit` + 1.
std::size_t difference(const std::string& one, const std::string& other, std::size_t limit) {
    if (one.size() > other.size() + limit || other.size() > one.size() + limit)
        return limit + 1;
    std::vector<std::size_t> row(other.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t changed = corner + (one[i - 1] == other[j - 1] ? 0 : 1);
            corner = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

std::vector<HeadPart> wordsAtGuideLine(const std::vector<HeadPart>& parts, bool foot, std::optional<double> y) {
    std::map<std::size_t, std::vector<HeadPart>> lines;
    for (const HeadPart& part : parts)
        if (part.foot == foot)
            lines[part.line].push_back(part);
    const std::vector<HeadPart>* best = nullptr;
    double bestCost = y ? kLineReach : 1e9;
    for (const auto& [number, line] : lines) {
        const auto words = std::count_if(line.begin(), line.end(), [](const HeadPart& part) { return !part.number; });
        if (words == 0 || line.size() > kMostParts)
            continue;
        // Without a known place: two words or a word and a number, else the first line.
        const double cost = y ? std::abs(line.front().y - *y) : static_cast<double>(line.size() < 2);
        if (cost < bestCost) {
            bestCost = cost;
            best = &line;
        }
    }
    std::vector<HeadPart> words;
    if (best != nullptr)
        std::copy_if(best->begin(), best->end(), std::back_inserter(words),
                     [](const HeadPart& part) { return !part.number; });
    return words;
}

/// The numbers of a book whose pages have one, if most are at one place.
std::optional<double> placeOfNumbers(const std::vector<std::vector<HeadPart>>& pages) {
    std::vector<double> middles;
    for (const auto& parts : pages)
        for (const HeadPart& part : parts)
            if (part.number)
                middles.push_back(part.middle());
    const double place = median(middles, -1);
    const auto near =
        std::count_if(middles.begin(), middles.end(), [&](double x) { return std::abs(x - place) < kNumberReach; });
    return !middles.empty() && near * 10 > static_cast<std::ptrdiff_t>(middles.size()) * 7 ? std::optional(place)
                                                                                           : std::nullopt;
}

bool sameLine(const HeadPart& one, const HeadPart& other) {
    return one.foot == other.foot && std::abs(one.y - other.y) < kSameLine;
}

/// Whether most pages with guide words and a number have them in one line.
bool numbersInLine(const std::vector<std::vector<HeadPart>>& pages, const GuideLayout& layout) {
    std::size_t both = 0, inLine = 0;
    for (const auto& parts : pages) {
        const auto number = std::find_if(parts.begin(), parts.end(), [](const HeadPart& part) { return part.number; });
        const auto words = wordsAtGuideLine(parts, layout.foot, layout.y);
        if (number == parts.end() || words.empty())
            continue;
        ++both;
        inLine += sameLine(*number, words.front()) ? 1 : 0;
    }
    return inLine >= kLeastNumbers && inLine * 10 > both * 7;
}

/// A place of page numbers, in the head or in the foot.
struct NumberPlace {
    bool foot = false;
    double middle = 0, y = 0;

    bool has(const HeadPart& part) const {
        return part.foot == foot && std::abs(part.middle() - middle) < kNumberReach &&
               std::abs(part.y - y) < kLineReach;
    }
};

/// The places where most numbers of the left, the middle and the right third are.
std::vector<NumberPlace> placesOfNumbers(const std::vector<std::vector<HeadPart>>& pages) {
    std::vector<NumberPlace> places;
    for (const bool foot : {false, true})
        for (const int third : {0, 1, 2}) {
            std::vector<double> middles, heights;
            for (const auto& parts : pages)
                for (const HeadPart& part : parts)
                    if (part.number && part.foot == foot && static_cast<int>(part.middle() * 3) == third) {
                        middles.push_back(part.middle());
                        heights.push_back(part.y);
                    }
            const NumberPlace place{foot, median(middles, 0), median(heights, 0)};
            const auto near = static_cast<std::size_t>(std::count_if(
                middles.begin(), middles.end(), [&](double x) { return std::abs(x - place.middle) < kNumberReach; }));
            if (near >= kLeastNumbers && near * 20 >= pages.size() && near * 10 > middles.size() * 6)
                places.push_back(place);
        }
    return places;
}

bool atNumber(const HeadPart& part, const GuideLayout& layout) {
    return layout.number && std::abs(part.middle() - *layout.number) < kNumberReach;
}

GuideLayout::Kind kindOfSingles(const std::vector<double>& middles, const std::vector<int>& firstIsEntry) {
    const auto left = std::count_if(middles.begin(), middles.end(), [](double x) { return x >= 0 && x < 0.42; });
    const auto right = std::count_if(middles.begin(), middles.end(), [](double x) { return x > 0.58; });
    int votesLeft = 0, votesRight = 0;
    for (std::size_t i = 0; i < middles.size(); ++i)
        (middles[i] > 0.58 ? votesRight : votesLeft) += middles[i] < 0 ? 0 : firstIsEntry[i];
    const bool bothSides = std::min(left, right) * 4 > std::max(left, right);
    if (bothSides && votesRight <= 0)
        return votesLeft < 0 ? GuideLayout::Kind::Last : GuideLayout::Kind::Mirrored;
    return votesLeft + votesRight < 0 ? GuideLayout::Kind::Last : GuideLayout::Kind::First;
}

/// The first and the last of the words of a page: those that are joined, or else those nearest to where the book has
/// them.
std::pair<HeadPart, HeadPart> outermost(const std::vector<HeadPart>& words, const GuideLayout& layout) {
    const auto joined = std::find_if(words.begin(), words.end(), [](const HeadPart& part) { return part.joined; });
    if (joined != words.begin() && joined != words.end())
        return {*(joined - 1), *joined};
    const auto nearest = [&](auto distance) {
        return *std::min_element(words.begin(), words.end(),
                                 [&](const HeadPart& a, const HeadPart& b) { return distance(a) < distance(b); });
    };
    return {nearest([&](const HeadPart& part) { return std::abs(part.left - layout.first); }),
            nearest([&](const HeadPart& part) { return std::abs(part.right - layout.last); })};
}

} // namespace

void claimNumbers(std::vector<std::vector<HeadPart>>& pages) {
    const std::vector<NumberPlace> places = placesOfNumbers(pages);
    for (auto& parts : pages) {
        if (std::any_of(parts.begin(), parts.end(), [](const HeadPart& part) { return part.number; }))
            continue;
        for (HeadPart& part : parts) {
            const bool here =
                std::any_of(places.begin(), places.end(), [&](const NumberPlace& place) { return place.has(part); });
            if (!here || lettersOf(part.readings.front().text).size() >= kLeastLetters)
                continue;
            part.number = true;
            part.readings = part.figures;
            break;
        }
    }
}

void removeRunningTitles(std::vector<std::vector<HeadPart>>& pages) {
    std::map<std::string, Occurrence> found;
    for (std::size_t i = 0; i < pages.size(); ++i)
        for (const HeadPart& part : pages[i])
            if (!part.number) {
                Occurrence& each =
                    found.try_emplace(lettersOf(part.readings[0].text), Occurrence{0, i, i}).first->second;
                ++each.count;
                each.end = i;
            }
    std::vector<std::string> titles;
    for (const auto& [letters, occurrence] : found)
        if (isRunningTitle(letters, occurrence, pages.size()))
            titles.push_back(letters);
    const auto isTitle = [&](const HeadPart& part) {
        const std::string letters = lettersOf(part.readings[0].text);
        return !part.number && std::any_of(titles.begin(), titles.end(), [&](const std::string& title) {
            const std::size_t limit = title.size() < 8 ? 0 : title.size() / 6;
            return difference(letters, title, limit) <= limit;
        });
    };
    for (auto& parts : pages)
        parts.erase(std::remove_if(parts.begin(), parts.end(), isTitle), parts.end());
}

GuideLayout guideLayoutOf(const std::vector<std::vector<HeadPart>>& pages, const std::vector<int>& firstIsEntry) {
    GuideLayout layout;
    std::size_t heads = 0, feet = 0;
    for (const auto& parts : pages) {
        heads += wordsAtGuideLine(parts, false, {}).empty() ? 0 : 1;
        feet += wordsAtGuideLine(parts, true, {}).empty() ? 0 : 1;
    }
    layout.foot = feet > 2 * heads;
    if (std::max(heads, feet) * 4 < pages.size() || pages.empty())
        return layout;
    std::vector<double> lines;
    for (const auto& parts : pages)
        if (const auto words = wordsAtGuideLine(parts, layout.foot, {}); !words.empty())
            lines.push_back(words.front().y);
    layout.y = median(lines, 0);
    layout.number = placeOfNumbers(pages);
    layout.numberInLine = numbersInLine(pages, layout);

    std::vector<double> firsts, lasts, singles(pages.size(), -1);
    std::size_t withWords = 0;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const auto words = wordsAtGuideLine(pages[i], layout.foot, layout.y);
        withWords += words.empty() ? 0 : 1;
        if (words.size() > 1) {
            firsts.push_back(words.front().left);
            lasts.push_back(words.back().right);
        } else if (!words.empty()) {
            singles[i] = words.front().middle();
        }
    }
    layout.first = median(firsts, 0);
    layout.last = median(lasts, 1);
    layout.kind = firsts.size() * 5 > withWords * 2 ? GuideLayout::Kind::Pair : kindOfSingles(singles, firstIsEntry);
    return layout;
}

PlacedParts placedParts(const std::vector<HeadPart>& parts, const GuideLayout& layout) {
    PlacedParts placed;
    for (const HeadPart& part : parts)
        if (part.number && (!placed.number || (placed.number->foot && !part.foot)))
            placed.number = part;
    if (layout.kind == GuideLayout::Kind::None)
        return placed;
    std::vector<HeadPart> words = wordsAtGuideLine(parts, layout.foot, layout.y);
    if (placed.number && layout.numberInLine) // what is elsewhere is dirt, or text
        std::erase_if(words, [&](const HeadPart& part) { return !sameLine(part, *placed.number); });
    if (!placed.number && layout.number) {
        const auto roman = std::find_if(words.begin(), words.end(), [&](const HeadPart& part) {
            return looksRoman(part.readings[0].text) && atNumber(part, layout);
        });
        if (roman != words.end()) {
            placed.number = *roman;
            words.erase(roman);
        }
    }
    if (words.empty())
        return placed;
    const auto [first, last] = outermost(words, layout);
    const HeadPart& single = words.front();
    const bool one = first.left == last.left;
    switch (layout.kind) {
    case GuideLayout::Kind::Pair:
        if (!one || std::abs(first.left - layout.first) <= std::abs(first.right - layout.last))
            placed.first = first;
        if (!one || !placed.first)
            placed.last = last;
        break;
    case GuideLayout::Kind::Mirrored:
        (single.middle() < 0.5 ? placed.first : placed.last) = single;
        break;
    case GuideLayout::Kind::Last:
        placed.last = single;
        break;
    case GuideLayout::Kind::First:
    case GuideLayout::Kind::None:
        placed.first = single;
        break;
    }
    return placed;
}

} // namespace velmarin
