#include "workshop/OtherReadings.h"

#include <algorithm>

namespace velmarin {

namespace {

std::vector<std::string> othersThan(const std::string& present, const std::vector<Guess>& guesses) {
    std::vector<std::string> others;
    for (const Guess& guess : guesses)
        if (!guess.text.empty() && guess.text != present &&
            std::find(others.begin(), others.end(), guess.text) == others.end())
            others.push_back(guess.text);
    return others;
}

double confidenceOf(const std::vector<Guess>& guesses, const std::string& text) {
    const auto same = [&text](const Guess& guess) { return guess.text == text; };
    const auto found = std::find_if(guesses.begin(), guesses.end(), same);
    return found == guesses.end() ? 0 : found->confidence;
}

} // namespace

std::vector<OtherReading> otherReadings(const PageGuess& guess, const DraftPage& row) {
    const std::vector<std::string> first = othersThan(row.first, guess.first), last = othersThan(row.last, guess.last);
    // Neither list takes the room that the other one could use.
    const std::size_t half = kMostOtherReadings / 2;
    const std::size_t ofFirst =
        std::min(first.size(), std::max(half, kMostOtherReadings - std::min(last.size(), kMostOtherReadings)));
    const std::size_t ofLast = std::min(last.size(), kMostOtherReadings - ofFirst);
    std::vector<OtherReading> others;
    for (std::size_t i = 0; i < ofFirst; ++i)
        others.push_back({GuidePlace::First, first[i]});
    for (std::size_t i = 0; i < ofLast; ++i)
        others.push_back({GuidePlace::Last, last[i]});
    return others;
}

GuidePlace likelierWrong(const Draft& draft, std::size_t row, const WorkshopBook& book) {
    const DraftPage& page = draft.pages[row];
    if (page.first.empty())
        return GuidePlace::First;
    // Against the other pages alone: if the two words contradict each other, that says nothing of which is wrong.
    Draft others = draft;
    others.pages[row].first.clear();
    others.pages[row].last.clear();
    const auto breaksOrder = [&](GuidePlace place, const std::string& word) {
        return !orderProblem(others, row, place, word, book.keyRule(), book.indexOrder()).empty();
    };
    if (breaksOrder(GuidePlace::First, page.first))
        return GuidePlace::First;
    if (breaksOrder(GuidePlace::Last, page.last))
        return GuidePlace::Last;
    const PageGuess* guess = book.guess(page.page);
    if (guess == nullptr || page.last.empty())
        return GuidePlace::First;
    return confidenceOf(guess->last, page.last) < confidenceOf(guess->first, page.first) ? GuidePlace::Last
                                                                                         : GuidePlace::First;
}

} // namespace velmarin
