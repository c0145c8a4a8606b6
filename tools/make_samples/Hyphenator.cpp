#include "make_samples/Hyphenator.h"

#include <cstdlib>
#include <map>
#include <mutex>
#include <stdexcept>

#include <hyphen.h>

#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t fewestLetters = 5;
constexpr std::size_t mostLetters = 60;
constexpr std::size_t lettersBefore = 2;
constexpr std::size_t lettersAfter = 3;

bool isLetter(char32_t c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c < 0x2000 && c != 0xD7 && c != 0xF7);
}

} // namespace

struct Hyphenator::Patterns {
    HyphenDict* dictionary = nullptr;

    explicit Patterns(const std::string& file) : dictionary(hnj_hyphen_load(file.c_str())) {
        if (dictionary == nullptr)
            throw std::runtime_error("cannot read the hyphenation dictionary " + file);
    }
    ~Patterns() { hnj_hyphen_free(dictionary); }
    Patterns(const Patterns&) = delete;
    Patterns& operator=(const Patterns&) = delete;

    /// For each letter of `word` whether a hyphen may follow it; empty where the patterns do not know its letters.
    std::vector<bool> after(const std::u32string& word) const {
        std::string coded;
        for (const char32_t c : word) {
            if (dictionary->utf8 != 0)
                appendUtf8(coded, c);
            else if (c < 0x100)
                coded += static_cast<char>(c);
            else
                return {};
        }
        std::vector<char> marks(coded.size() + 5);
        char** rep = nullptr;
        int* pos = nullptr;
        int* cut = nullptr;
        if (hnj_hyphen_hyphenate2(dictionary, coded.c_str(), static_cast<int>(coded.size()), marks.data(), nullptr,
                                  &rep, &pos, &cut) != 0)
            return {};
        // Where a replacement is given the spelling would change at the division; such places are passed over. Marks
        // stand one to a letter.
        std::vector<bool> result(word.size());
        for (std::size_t i = 0; i < word.size(); ++i)
            result[i] = (marks[i] & 1) != 0 && (rep == nullptr || rep[i] == nullptr);
        if (rep != nullptr)
            for (std::size_t i = 0; i < coded.size(); ++i)
                std::free(rep[i]);
        std::free(rep);
        std::free(pos);
        std::free(cut);
        return result;
    }
};

std::shared_ptr<const Hyphenator::Patterns> Hyphenator::patternsOf(const std::string& file) {
    static std::mutex guard;
    static std::map<std::string, std::shared_ptr<const Patterns>> read;
    const std::lock_guard lock(guard);
    auto& patterns = read[file];
    if (!patterns)
        patterns = std::make_shared<const Patterns>(file);
    return patterns;
}

Hyphenator::Hyphenator(const std::string& file) : patterns_(file.empty() ? nullptr : patternsOf(file)) {}

Hyphenator::~Hyphenator() = default;

const std::vector<std::size_t>& Hyphenator::places(std::string_view word) {
    const auto [place, isNew] = known_.try_emplace(std::string(word));
    std::vector<std::size_t>& places = place->second;
    if (!isNew || !patterns_)
        return places;
    std::u32string letters;
    std::vector<std::size_t> ends;
    std::size_t at = 0;
    while (at < word.size()) {
        const std::size_t start = at;
        const char32_t c = nextCodePoint(word, at);
        if (isLetter(c)) {
            // A word with a mark inside is left whole.
            if (!ends.empty() && ends.back() != start)
                return places;
            letters += c < 0x80 ? (c | 0x20) : c;
            ends.push_back(at);
        }
    }
    if (letters.size() < fewestLetters || letters.size() > mostLetters)
        return places;
    const std::vector<bool> after = patterns_->after(letters);
    for (std::size_t i = lettersBefore - 1; i + lettersAfter < after.size(); ++i)
        if (after[i])
            places.push_back(ends[i]);
    return places;
}

} // namespace velmarin
