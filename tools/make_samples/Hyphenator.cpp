#include "make_samples/Hyphenator.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>

#include <hyphen.h>
#include <utf8proc.h>

#include "make_samples/Text.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr std::size_t fewestLetters = 5;
constexpr std::size_t mostBytes = 90; // libhyphen takes words of 100 at most
constexpr int lettersBefore = 2;
constexpr int lettersAfter = 3;

bool isLetter(char32_t c) {
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(c));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO;
}

/// The patterns of a file in UTF-8. The longest, for single compounds, are left out: libhyphen takes three seconds to
/// load the 78,000 German ones, and the others a tenth of one.
std::string shortPatterns(const std::string& file) {
    constexpr std::ptrdiff_t mostLetters = 10;
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    const bool isUtf8 = line.starts_with("UTF-8");
    std::string patterns = "UTF-8\n";
    while (std::getline(stream, line)) {
        if (line.starts_with("#") || line.starts_with("%") ||
            std::ranges::count_if(line, [](char c) { return c < '0' || c > '9'; }) > mostLetters)
            continue;
        for (const char c : line)
            appendUtf8(patterns,
                       isUtf8 ? invalidByteUnit + static_cast<unsigned char>(c) : static_cast<unsigned char>(c));
        patterns += '\n';
    }
    if (!stream.eof())
        throw std::runtime_error("cannot read the hyphenation patterns " + file);
    return patterns;
}

} // namespace

Hyphenator::Hyphenator(const std::string& file) {
    if (file.empty())
        return;
    std::string patterns = shortPatterns(file);
    const std::unique_ptr<FILE, int (*)(FILE*)> memory(fmemopen(patterns.data(), patterns.size(), "r"), std::fclose);
    patterns_.reset(hnj_hyphen_load_file(memory.get()), hnj_hyphen_free);
}

std::string Hyphenator::divided(std::string_view word) const {
    std::string small;
    for (std::size_t at = 0; at < word.size();)
        appendUtf8(small,
                   static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(nextCodePoint(word, at)))));
    if (small.size() < fewestLetters || small.size() > mostBytes)
        return std::string(word);
    std::array<char, mostBytes + 5> digits{};
    char** replacements = nullptr; // for divisions that change the spelling; these languages have none
    int* positions = nullptr;
    int* cuts = nullptr;
    hnj_hyphen_hyphenate3(patterns_.get(), small.data(), static_cast<int>(small.size()), digits.data(), nullptr,
                          &replacements, &positions, &cuts, lettersBefore, lettersAfter, lettersBefore, lettersAfter);
    std::free(replacements);
    std::free(positions);
    std::free(cuts);
    std::string out;
    std::size_t letter = 0;
    for (std::size_t at = 0; at < word.size(); ++letter) {
        appendUtf8(out, nextCodePoint(word, at));
        if (digits[letter] % 2 == 1)
            out += "\u00AD";
    }
    return out;
}

std::string Hyphenator::hyphenated(std::string_view markup) {
    if (!patterns_)
        return std::string(markup);
    std::string out;
    std::size_t from = 0;
    while (from < markup.size()) {
        std::size_t end = from;
        if (markup[from] == '<' || markup[from] == '&') {
            const bool isHeadword = markup.substr(from).starts_with("<b>");
            end = std::min(isHeadword ? markup.find("</b>", from) : markup.find_first_of(">;", from), markup.size());
            out += markup.substr(from, end - from);
        } else {
            std::size_t next = from;
            while (end < markup.size() && isLetter(nextCodePoint(markup, next)))
                end = next;
            const std::string word(markup.substr(from, end - from));
            const auto [known, isNew] = known_.try_emplace(word);
            if (isNew)
                known->second = divided(word);
            out += known->second;
            if (end < markup.size() && markup[end] != '<' && markup[end] != '&') {
                out += markup.substr(end, next - end);
                end = next;
            }
        }
        from = end;
    }
    return out;
}

} // namespace velmarin
