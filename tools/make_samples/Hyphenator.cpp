#include "make_samples/Hyphenator.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>
#include <sstream>
#include <stdexcept>

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

char32_t smallLetter(char32_t c) {
    const bool isCapital = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    return isCapital ? c + 0x20 : c;
}

bool isDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

std::u32string decoded(std::string_view line, bool isUtf8) {
    std::u32string text;
    for (std::size_t at = 0; at < line.size();)
        text += isUtf8 ? nextCodePoint(line, at) : static_cast<unsigned char>(line[at++]);
    return text;
}

bool isPattern(std::string_view line) {
    return !line.empty() && line.find_first_of("#%/ \t") == std::string_view::npos &&
           line.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string_view::npos;
}

} // namespace

/// The patterns as a tree of letters.
class Hyphenator::Patterns {
  public:
    explicit Patterns(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        std::ostringstream bytes;
        if (!stream || !(bytes << stream.rdbuf()))
            throw std::runtime_error("cannot read the hyphenation patterns " + file);
        const std::string text = bytes.str();
        const auto lines = linesOf(text);
        const std::string_view encoding = lines.empty() ? "" : trimmed(lines[0]);
        if (encoding != "UTF-8" && encoding != "ISO8859-1")
            throw std::runtime_error("the hyphenation patterns " + file + " are in no known encoding");
        for (std::size_t i = 1; i < lines.size(); ++i)
            if (const std::string_view line = trimmed(lines[i]); isPattern(line))
                add(decoded(line, encoding == "UTF-8"));
    }

    /// For each letter of `word` whether a hyphen may follow it.
    std::vector<bool> after(const std::u32string& word) const {
        const std::u32string bounded = U"." + word + U".";
        std::vector<std::uint8_t> values(bounded.size() + 1);
        for (std::size_t start = 0; start < bounded.size(); ++start) {
            std::uint32_t node = 0;
            for (std::size_t at = start; at < bounded.size(); ++at) {
                const auto next = child(node, bounded[at]);
                if (!next)
                    break;
                node = *next;
                const auto& digits = values_[node];
                for (std::size_t i = 0; i < digits.size(); ++i)
                    values[start + i] = std::max(values[start + i], digits[i]);
            }
        }
        std::vector<bool> result(word.size());
        for (std::size_t i = 0; i < word.size(); ++i)
            result[i] = values[i + 2] % 2 == 1;
        return result;
    }

  private:
    static std::uint64_t branch(std::uint32_t node, char32_t c) { return std::uint64_t{node} << 32 | c; }

    std::optional<std::uint32_t> child(std::uint32_t node, char32_t c) const {
        const auto found = branches_.find(branch(node, c));
        return found == branches_.end() ? std::nullopt : std::optional(found->second);
    }

    void add(const std::u32string& pattern) {
        std::uint32_t node = 0;
        std::vector<std::uint8_t> digits(1);
        for (const char32_t c : pattern) {
            if (isDigit(c)) {
                digits.back() = static_cast<std::uint8_t>(c - '0');
                continue;
            }
            const auto [place, isNew] =
                branches_.try_emplace(branch(node, c), static_cast<std::uint32_t>(values_.size()));
            if (isNew)
                values_.emplace_back();
            node = place->second;
            digits.push_back(0);
        }
        auto& known = values_[node];
        known.resize(std::max(known.size(), digits.size()));
        for (std::size_t i = 0; i < digits.size(); ++i)
            known[i] = std::max(known[i], digits[i]);
    }

    std::unordered_map<std::uint64_t, std::uint32_t> branches_;
    /// For each node the digits of the pattern that ends there, one before each letter and one after the last.
    std::vector<std::vector<std::uint8_t>> values_{1};
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
    if (!isNew || !patterns_)
        return place->second;
    constexpr std::string_view dash = "—";
    for (std::size_t start = 0; start <= word.size();) {
        const std::size_t end = std::min(word.find(dash, start), word.size());
        addPlaces(place->second, word.substr(start, end - start), start);
        start = end + dash.size();
    }
    return place->second;
}

void Hyphenator::addPlaces(std::vector<std::size_t>& places, std::string_view word, std::size_t offset) const {
    std::u32string letters;
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < word.size();) {
        const std::size_t start = at;
        const char32_t c = nextCodePoint(word, at);
        if (!isLetter(c))
            continue;
        // A word with a mark inside is left whole.
        if (!ends.empty() && ends.back() != start)
            return;
        letters += smallLetter(c);
        ends.push_back(at);
    }
    if (letters.size() < fewestLetters || letters.size() > mostLetters)
        return;
    const std::vector<bool> after = patterns_->after(letters);
    for (std::size_t i = lettersBefore - 1; i + lettersAfter < after.size(); ++i)
        if (after[i])
            places.push_back(offset + ends[i]);
}

} // namespace velmarin
