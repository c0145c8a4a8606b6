#include "side/FindInText.h"

#include "text/LetterCase.h"

#include <algorithm>
#include <vector>

namespace velmarin {

namespace {

/// The capital of each code unit; a surrogate is its own.
const std::vector<char16_t>& capitals() {
    static const std::vector<char16_t> table = [] {
        constexpr std::size_t kUnits = 0x10000;
        std::vector<char16_t> made(kUnits);
        for (std::size_t unit = 0; unit < kUnits; ++unit) {
            const char32_t capital = capitalOf(static_cast<char32_t>(unit));
            made[unit] = static_cast<char16_t>(capital < kUnits ? capital : unit);
        }
        return made;
    }();
    return table;
}

} // namespace

int findIgnoringCase(int start, std::u16string_view text, std::u16string_view find) {
    const std::size_t from = start < 1 ? 0 : static_cast<std::size_t>(start) - 1;
    if (find.empty() || from > text.size() || find.size() > text.size() - from)
        return 0;
    const std::vector<char16_t>& capital = capitals();
    std::u16string wanted(find);
    std::transform(wanted.begin(), wanted.end(), wanted.begin(), [&](char16_t unit) { return capital[unit]; });
    const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                                   wanted.end(), [&](char16_t a, char16_t b) { return capital[a] == b; });
    return found == text.end() ? 0 : static_cast<int>(found - text.begin()) + 1;
}

std::optional<TextHit> FindSteps::step(const AnswerText& text, std::string_view word) {
    const std::optional<TextHit> hit = text.findWord(pFindStartPosition, word);
    pFindStartPosition = hit ? hit->position + hit->length : 0;
    return hit;
}

} // namespace velmarin
