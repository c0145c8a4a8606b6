#include "reading/GreekLetters.h"

#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmarin {

namespace {

/// Latin letters and variants of Greek ones, and the letters that they are taken for.
constexpr std::array<std::pair<char32_t, std::string_view>, 35> kMeant{
    {{U'ϑ', "θ"}, {U'ϐ', "β"}, {U'ϕ', "φ"}, {U'ϖ', "π"}, {U'ϰ', "κ"}, {U'ϱ', "ρ"}, {U'ϲ', "σ"},
     {U'ϒ', "Υ"}, {U'µ', "μ"}, {U'a', "α"}, {U'o', "ο"}, {U'v', "ν"}, {U'i', "ι"}, {U'k', "κ"},
     {U'p', "ρ"}, {U'u', "υ"}, {U'x', "χ"}, {U'y', "γ"}, {U'w', "ω"}, {U'n', "η"}, {U't', "τ"},
     {U'A', "Α"}, {U'B', "Β"}, {U'E', "Ε"}, {U'Z', "Ζ"}, {U'H', "Η"}, {U'I', "Ι"}, {U'K', "Κ"},
     {U'M', "Μ"}, {U'N', "Ν"}, {U'O', "Ο"}, {U'P', "Ρ"}, {U'T', "Τ"}, {U'Y', "Υ"}, {U'X', "Χ"}}};

bool isGreekLetter(char32_t c) {
    return !isGreekMark(c) && ((c >= 0x370 && c < 0x400) || (c >= 0x1F00 && c < 0x2000));
}

} // namespace

bool isGreekMark(char32_t c) {
    constexpr std::array<char32_t, 8> kMarks{0x374, 0x375, 0x37A, 0x37E, 0x384, 0x385, 0x387, 0x1FBD};
    return std::find(kMarks.begin(), kMarks.end(), c) != kMarks.end() || (c >= 0x1FBF && c <= 0x1FC1) ||
           (c >= 0x1FCD && c <= 0x1FCF) || (c >= 0x1FDD && c <= 0x1FDF) || (c >= 0x1FED && c <= 0x1FEF) ||
           (c >= 0x1FFD && c <= 0x1FFE);
}

std::string plainGreek(std::string_view text) {
    std::string plain;
    bool greek = false;
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        const auto meant =
            std::find_if(kMeant.begin(), kMeant.end(), [&](const auto& each) { return each.first == unit.value; });
        greek = greek || isGreekLetter(unit.value);
        if (meant != kMeant.end())
            plain += meant->second;
        else if (!isGreekMark(unit.value))
            plain += text.substr(at, unit.length);
        at += unit.length;
    }
    return greek ? composedForm(plain) : std::string(text);
}

void KappaCount::add(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        kappas += unit.value == U'κ' ? 1 : 0;
        chis += unit.value == U'χ' ? 1 : 0;
        at += unit.length;
    }
}

std::vector<Guess> withKappa(const std::vector<Guess>& readings) {
    constexpr std::string_view kChi = "χ", kKappa = "κ";
    constexpr double kAll = 0.75, kOneLeft = 0.15, kAsRead = 0.2; // of the confidence of the reading
    std::vector<Guess> wider;
    const auto add = [&](std::string text, double confidence) {
        if (std::none_of(wider.begin(), wider.end(), [&](const Guess& each) { return each.text == text; }))
            wider.push_back({std::move(text), confidence});
    };
    for (const Guess& reading : readings) {
        std::vector<std::size_t> chis;
        for (std::size_t at = reading.text.find(kChi); at != std::string::npos; at = reading.text.find(kChi, at + 1))
            chis.push_back(at);
        if (chis.empty()) {
            add(reading.text, reading.confidence);
            continue;
        }
        const auto without = [&](std::size_t left) { // both letters have two bytes
            std::string text = reading.text;
            for (const std::size_t at : chis)
                if (at != left)
                    text.replace(at, kChi.size(), kKappa);
            return text;
        };
        add(without(std::string::npos), kAll * reading.confidence);
        for (const std::size_t left : chis)
            if (chis.size() > 1)
                add(without(left), kOneLeft * reading.confidence);
        add(reading.text, kAsRead * reading.confidence);
    }
    std::stable_sort(wider.begin(), wider.end(),
                     [](const Guess& a, const Guess& b) { return a.confidence > b.confidence; });
    return wider;
}

} // namespace velmarin
