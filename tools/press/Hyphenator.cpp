#include "press/Hyphenator.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <glib.h>
#include <hyphen.h>

#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr std::size_t kFewestBytes = 5;
constexpr std::size_t kMostBytes = 90; // libhyphen takes words of up to 100

/// The patterns of a file in UTF-8. The longest, for single compounds, are left out: libhyphen takes three seconds to
/// load all 78,000 German ones, and a tenth of a second for the others.
std::string shortPatterns(const std::string& file) {
    constexpr std::ptrdiff_t mostLetters = 10;
    std::ifstream stream(file);
    std::string charset;
    std::getline(stream, charset);
    std::string patterns = "UTF-8\n";
    for (std::string line; std::getline(stream, line);) {
        const auto letters = std::ranges::count_if(line, [](char c) { return c < '0' || c > '9'; });
        if (!line.starts_with('#') && !line.starts_with('%') && letters <= mostLetters)
            patterns += line + '\n';
    }
    const std::unique_ptr<char, decltype(&g_free)> utf8(
        g_convert(patterns.data(), -1, "UTF-8", charset.c_str(), nullptr, nullptr, nullptr), g_free);
    if (!stream.eof() || !utf8)
        throw std::runtime_error("cannot read the hyphenation patterns " + file);
    return utf8.get();
}

} // namespace

Hyphenator::Hyphenator(const std::string& file) {
    if (file.empty())
        return;
    std::string patterns = shortPatterns(file);
    const std::unique_ptr<FILE, int (*)(FILE*)> memory(fmemopen(patterns.data(), patterns.size(), "r"), std::fclose);
    patterns_.reset(hnj_hyphen_load_file(memory.get()), hnj_hyphen_free);
}

const std::string& Hyphenator::divided(const std::string& word) const {
    const auto [known, isNew] = divided_.try_emplace(word, word);
    std::string& out = known->second;
    if (!isNew || word.size() < kFewestBytes || word.size() > kMostBytes)
        return out;
    std::string small = Lowercase(word);
    std::array<char, kMostBytes * 2> digits{}; // after each letter; odd if the word may be divided there
    char** replacements = nullptr;             // for divisions that change the spelling; these languages have none
    int* positions = nullptr;
    int* cuts = nullptr;
    hnj_hyphen_hyphenate3(patterns_.get(), small.data(), static_cast<int>(small.size()), digits.data(), nullptr,
                          &replacements, &positions, &cuts, 2, 3, 2, 3); // letters before and after a division
    for (void* unused : {static_cast<void*>(replacements), static_cast<void*>(positions), static_cast<void*>(cuts)})
        std::free(unused);
    out.clear();
    std::size_t letter = 0;
    for (std::size_t at = 0; at < word.size(); ++letter) {
        const std::size_t length = decodeUtf8(word, at).length;
        out += word.substr(at, length);
        if (digits[letter] % 2 == 1)
            out += "\u00AD";
        at += length;
    }
    return out;
}

std::string Hyphenator::hyphenated(std::string_view markup) const {
    if (!patterns_)
        return std::string(markup);
    std::string out;
    std::string word;
    bool inTag = false; // or in an entity
    bool inHeadword = false;
    for (std::size_t at = 0; at < markup.size();) {
        const auto [value, length] = decodeUtf8(markup, at);
        if (!inTag && !inHeadword && g_unichar_isalpha(value) != FALSE) {
            word += markup.substr(at, length);
        } else {
            out += divided(word);
            out += markup.substr(at, length);
            word.clear();
        }
        if (value == '<')
            inHeadword = markup.substr(at).starts_with("<b>") || (inHeadword && !markup.substr(at).starts_with("</b>"));
        inTag = inTag ? value != '>' && value != ';' : value == '<' || value == '&';
        at += length;
    }
    return out + divided(word);
}

} // namespace velmarin
