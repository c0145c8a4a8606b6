#include "making/PrintedNumbers.h"

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

struct RomanDigit {
    int value;
    std::string_view text;
};

constexpr std::array<RomanDigit, 13> kRomanDigits{{{1000, "m"},
                                                   {900, "cm"},
                                                   {500, "d"},
                                                   {400, "cd"},
                                                   {100, "c"},
                                                   {90, "xc"},
                                                   {50, "l"},
                                                   {40, "xl"},
                                                   {10, "x"},
                                                   {9, "ix"},
                                                   {5, "v"},
                                                   {4, "iv"},
                                                   {1, "i"}}};
constexpr int kLargestRoman = 3999;

std::string withCase(std::string text, char lowest, int shift) {
    std::transform(text.begin(), text.end(), text.begin(), [lowest, shift](char c) {
        return c >= lowest && c < lowest + 26 ? static_cast<char>(c + shift) : c;
    });
    return text;
}

std::string capitals(std::string text) {
    return withCase(std::move(text), 'a', 'A' - 'a');
}

std::string smallLetters(std::string text) {
    return withCase(std::move(text), 'A', 'a' - 'A');
}

/// "100" for "99": decimal digits plus one, with leading zeros kept.
std::string nextDecimal(std::string digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return digits;
        }
        *digit = '0';
    }
    return "1" + digits;
}

} // namespace

std::string romanNumber(int value) {
    std::string text;
    for (const RomanDigit& digit : kRomanDigits)
        for (; value >= digit.value; value -= digit.value)
            text += digit.text;
    return text;
}

int romanValue(std::string_view text) {
    int value = 0;
    std::string_view rest = text;
    for (const RomanDigit& digit : kRomanDigits)
        while (rest.starts_with(digit.text) && value <= kLargestRoman) {
            value += digit.value;
            rest.remove_prefix(digit.text.size());
        }
    return value <= kLargestRoman && romanNumber(value) == text ? value : 0;
}

std::optional<std::string> nextPrintedNumber(std::string_view number) {
    const std::size_t lastOther = number.find_last_not_of("0123456789");
    const std::size_t digits = lastOther == std::string_view::npos ? 0 : lastOther + 1;
    if (digits < number.size())
        return std::string(number.substr(0, digits)) + nextDecimal(std::string(number.substr(digits)));
    const std::string text(number);
    for (const bool small : {true, false}) {
        if (text != (small ? smallLetters(text) : capitals(text)))
            continue;
        const int value = romanValue(smallLetters(text));
        if (value > 0 && value < kLargestRoman)
            return small ? romanNumber(value + 1) : capitals(romanNumber(value + 1));
    }
    return std::nullopt;
}

std::vector<std::string> filledPrintedNumbers(std::vector<std::string> numbers) {
    std::optional<std::string> next;
    for (std::string& number : numbers) {
        if (number == kNoPrintedNumber) {
            number.clear();
            next.reset();
            continue;
        }
        if (number.empty() && next)
            number = *next;
        next = number.empty() ? std::nullopt : nextPrintedNumber(number);
    }
    return numbers;
}

} // namespace velmarin
