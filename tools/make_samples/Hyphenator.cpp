#include "make_samples/Hyphenator.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>
#include <stdexcept>

#include <hyphen.h>
#include <utf8proc.h>

#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t fewestLetters = 5;
constexpr std::size_t mostLetters = 60;
constexpr int lettersBefore = 2;
constexpr int lettersAfter = 3;

bool isLetter(char32_t c) {
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(c));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO;
}

/// Read once in a process. They do not change, so threads share them.
std::shared_ptr<HyphenDict> patternsOf(const std::string& file) {
    static std::mutex guard;
    static std::map<std::string, std::shared_ptr<HyphenDict>> read;
    const std::lock_guard lock(guard);
    auto& patterns = read[file];
    if (!patterns)
        patterns.reset(hnj_hyphen_load(file.c_str()), [](HyphenDict* loaded) {
            if (loaded != nullptr)
                hnj_hyphen_free(loaded);
        });
    if (!patterns)
        throw std::runtime_error("cannot read the hyphenation patterns " + file);
    return patterns;
}

} // namespace

Hyphenator::Hyphenator(const std::string& file) : patterns_(file.empty() ? nullptr : patternsOf(file)) {
    isUtf8_ = patterns_ && patterns_->utf8 != 0;
}

std::string Hyphenator::divided(std::string_view word) const {
    std::string small;
    std::size_t letters = 0;
    for (std::size_t at = 0; at < word.size(); ++letters) {
        const auto c = utf8proc_tolower(static_cast<utf8proc_int32_t>(nextCodePoint(word, at)));
        if (!isUtf8_ && c > 0xFF)
            return std::string(word);
        if (isUtf8_)
            appendUtf8(small, static_cast<char32_t>(c));
        else
            small += static_cast<char>(c);
    }
    if (letters < fewestLetters || letters > mostLetters)
        return std::string(word);
    std::array<char, mostLetters * 4 + 5> digits{};
    char** replacements = nullptr;
    int* positions = nullptr;
    int* cuts = nullptr;
    hnj_hyphen_hyphenate3(patterns_.get(), small.data(), static_cast<int>(small.size()), digits.data(), nullptr,
                          &replacements, &positions, &cuts, lettersBefore, lettersAfter, lettersBefore, lettersAfter);
    std::string out;
    std::size_t at = 0;
    for (std::size_t i = 0; i < letters; ++i) {
        const std::size_t start = at;
        nextCodePoint(word, at);
        out += word.substr(start, at - start);
        // A division that changes the spelling is left out.
        const bool changes = replacements != nullptr && replacements[i] != nullptr;
        if (digits[i] % 2 == 1 && !changes)
            out += "\u00AD";
    }
    for (std::size_t i = 0; replacements != nullptr && i < letters; ++i)
        std::free(replacements[i]);
    std::free(replacements);
    std::free(positions);
    std::free(cuts);
    return out;
}

std::string Hyphenator::hyphenated(std::string_view markup) {
    if (!patterns_)
        return std::string(markup);
    std::string out;
    out.reserve(markup.size() * 5 / 4);
    for (std::size_t at = 0; at < markup.size();) {
        const std::string_view rest = markup.substr(at);
        std::size_t end = at;
        if (rest.starts_with("<b>"))
            end = std::min(markup.find("</", at), markup.size());
        else if (rest.front() == '<' || rest.front() == '&')
            end = std::min(markup.find(rest.front() == '<' ? '>' : ';', at), markup.size());
        if (end > at) {
            out += markup.substr(at, end - at);
            at = end;
            continue;
        }
        std::size_t next = at;
        while (next < markup.size() && isLetter(nextCodePoint(markup, next)))
            end = next;
        if (end == at) {
            out += markup.substr(at, next - at);
            at = next;
            continue;
        }
        const std::string_view word = markup.substr(at, end - at);
        auto found = known_.find(word);
        if (found == known_.end())
            found = known_.emplace(word, divided(word)).first;
        out += found->second;
        at = end;
    }
    return out;
}

} // namespace velmarin
