#include "text/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace velmarin {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isPlace(char c) {
    return c == '0' || c == '#';
}

/// The digits of a number: `whole` without leading zeros, `fraction` of the requested length.
struct Digits {
    std::string whole;
    std::string fraction;
};

/// The shortest decimal digits that identify `value`, which is finite and not negative.
Digits shortestDigits(double value) {
    char buffer[512]; // at most 309 whole digits, or 323 zeros and 17 significant digits
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    const std::string_view text(buffer, static_cast<std::size_t>(written.ptr - buffer));
    const std::size_t point = std::min(text.find('.'), text.size());
    Digits digits;
    digits.whole = text.substr(0, point);
    if (digits.whole == "0")
        digits.whole.clear();
    if (point < text.size())
        digits.fraction = text.substr(point + 1);
    return digits;
}

void addOne(Digits& digits) {
    for (std::string* part : {&digits.fraction, &digits.whole}) {
        for (auto digit = part->rbegin(); digit != part->rend(); ++digit) {
            if (*digit != '9') {
                ++*digit;
                return;
            }
            *digit = '0';
        }
    }
    digits.whole.insert(digits.whole.begin(), '1');
}

/// Rounds the decimal form that a person would write, so that 2.675 to two places is 2.68 although the nearest double
/// is slightly less.
Digits roundedDigits(double value, std::size_t places) {
    Digits digits = shortestDigits(value);
    const bool up = digits.fraction.size() > places && digits.fraction[places] >= '5';
    digits.fraction.resize(places, '0');
    if (up)
        addOne(digits);
    return digits;
}

struct Picture {
    explicit Picture(std::string_view spec) {
        const std::size_t point = std::min(spec.find('.'), spec.size());
        whole = spec.substr(0, point);
        hasPoint = point < spec.size();
        if (hasPoint)
            fraction = spec.substr(point + 1);
        const auto places = [](std::string_view part) {
            return static_cast<std::size_t>(std::count_if(part.begin(), part.end(), isPlace));
        };
        wholePlaces = places(whole);
        fractionPlaces = places(fraction);
        const std::size_t firstZero = whole.find('0');
        if (firstZero != std::string_view::npos)
            leastWhole = places(whole.substr(firstZero));
        const std::size_t lastZero = fraction.rfind('0');
        if (lastZero != std::string_view::npos)
            leastFraction = places(fraction.substr(0, lastZero + 1));
        firstPlace = whole.find_first_of("0#");
        lastPlace = whole.find_last_of("0#");
        for (std::size_t i = 0; i < whole.size(); ++i)
            grouped = grouped || isGroupMark(i);
    }

    bool isGroupMark(std::size_t i) const {
        return whole[i] == ',' && wholePlaces > 0 && i > firstPlace && i < lastPlace;
    }

    std::string_view whole, fraction;
    bool hasPoint = false;
    bool grouped = false;
    std::size_t wholePlaces = 0, fractionPlaces = 0;
    std::size_t leastWhole = 0, leastFraction = 0;
    std::size_t firstPlace = 0, lastPlace = 0;
};

/// Writes `digits` into the places of the whole part, aligned right; the first place takes all surplus digits.
std::string writeWhole(const Picture& picture, std::string_view digits) {
    std::string out;
    const auto writeDownTo = [&](std::size_t left) {
        while (digits.size() > left) {
            out += digits.front();
            digits.remove_prefix(1);
            if (picture.grouped && !digits.empty() && digits.size() % 3 == 0)
                out += ',';
        }
    };
    std::size_t placesLeft = picture.wholePlaces;
    for (std::size_t i = 0; i < picture.whole.size(); ++i) {
        if (isPlace(picture.whole[i]))
            writeDownTo(--placesLeft);
        else if (!picture.isGroupMark(i))
            out += picture.whole[i];
    }
    if (picture.fractionPlaces > 0)
        writeDownTo(0);
    return out;
}

std::string writeFraction(const Picture& picture, std::string_view digits) {
    std::string out;
    if (picture.hasPoint && (picture.fractionPlaces == 0 || !digits.empty()))
        out += '.';
    for (const char c : picture.fraction) {
        if (!isPlace(c)) {
            out += c;
        } else if (!digits.empty()) {
            out += digits.front();
            digits.remove_prefix(1);
        }
    }
    return out;
}

std::string plainNumber(double value) {
    const Digits digits = shortestDigits(std::abs(value));
    std::string out = value < 0 ? "-" : "";
    out += digits.whole.empty() ? "0" : digits.whole;
    if (!digits.fraction.empty())
        out.append(1, '.').append(digits.fraction);
    return out;
}

} // namespace

double CDbl(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    std::size_t end = 0;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    const std::size_t wholeDigits = end;
    if (end < text.size() && text[end] == '.') {
        ++end;
        while (end < text.size() && isDigit(text[end]))
            ++end;
    }
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + end, value, std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range) {
        const bool huge = text.substr(0, wholeDigits).find_first_not_of('0') != std::string_view::npos;
        value = huge ? std::numeric_limits<double>::max() : 0;
    }
    return negative ? -value : value;
}

std::int32_t toInt32(double value) {
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(value, lowest, highest));
}

std::string Format(double value, std::string_view spec) {
    constexpr double largest = std::numeric_limits<double>::max();
    value = std::isnan(value) ? 0 : std::clamp(value, -largest, largest);
    if (spec.empty())
        return plainNumber(value);
    const Picture picture(spec);
    Digits digits = roundedDigits(std::abs(value), picture.fractionPlaces);
    const auto isZero = [](const std::string& part) { return part.find_first_not_of('0') == std::string::npos; };
    const bool negative = value < 0 && !(isZero(digits.whole) && isZero(digits.fraction));
    if (digits.whole.size() < picture.leastWhole)
        digits.whole.insert(0, picture.leastWhole - digits.whole.size(), '0');
    while (digits.fraction.size() > picture.leastFraction && digits.fraction.back() == '0')
        digits.fraction.pop_back();
    std::string out(negative ? 1 : 0, '-');
    out += writeWhole(picture, digits.whole);
    out += writeFraction(picture, digits.fraction);
    return out;
}

std::string Str(std::int64_t value) {
    return std::to_string(value);
}

} // namespace velmarin
