#include "draft/NumberMending.h"

#include "making/PrintedNumbers.h"
#include "text/LetterCase.h"
#include "text/NumberText.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <optional>
#include <tuple>

namespace velmarin {

namespace {

/// How many pages on either side vote on the number of a page.
constexpr std::ptrdiff_t kReach = 6;
/// What a person's number counts more than a reading.
constexpr double kWeightOfSet = 100;
/// What the number that is read on the page itself counts more than a neighbour's.
constexpr double kWeightOfOwn = 1.5;
/// A page without any number weakens what is said across it: it may count or not.
constexpr double kAcrossGap = 0.5;
/// Pages that read a number of one counting, so that it is sure.
constexpr std::size_t kSureSupport = 3;

enum class Digits { Decimal, SmallRoman, CapitalRoman };

/// A way of counting: the number of page i is base + step * i.
struct Counting {
    Digits digits = Digits::Decimal;
    std::ptrdiff_t base = 0;

    friend bool operator<(const Counting& a, const Counting& b) {
        return std::tie(a.digits, a.base) < std::tie(b.digits, b.base);
    }
};

struct Value {
    Digits digits = Digits::Decimal;
    std::ptrdiff_t value = 0;
};

std::optional<Value> valueOf(const std::string& text) {
    if (!text.empty() && text.size() < 6 && text.find_first_not_of("0123456789") == std::string::npos)
        return Value{Digits::Decimal, std::atoi(text.c_str())};
    if (const int roman = romanValue(text); roman > 0)
        return Value{Digits::SmallRoman, roman};
    std::string small = text;
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : '?'; });
    if (const int roman = romanValue(small); roman > 0)
        return Value{Digits::CapitalRoman, roman};
    return std::nullopt;
}

bool countsOn(const NumberGuess& before, const NumberGuess& after, std::ptrdiff_t step) {
    return std::any_of(before.readings.begin(), before.readings.end(), [&](const Guess& one) {
        const std::optional<Value> value = valueOf(one.text);
        return value && std::any_of(after.readings.begin(), after.readings.end(), [&](const Guess& other) {
                   const std::optional<Value> next = valueOf(other.text);
                   return next && next->digits == value->digits && next->value - value->value == step;
               });
    });
}

/// 2 if most pages count on by two, else 1.
std::ptrdiff_t stepOf(const std::vector<NumberGuess>& guesses) {
    std::array<std::size_t, 3> steps{};
    for (std::size_t i = 1; i < guesses.size(); ++i)
        for (const std::size_t step : {1U, 2U})
            steps[step] += countsOn(guesses[i - 1], guesses[i], static_cast<std::ptrdiff_t>(step)) ? 1 : 0;
    return steps[2] > steps[1] ? 2 : 1;
}

std::string textOf(const Counting& counting, std::ptrdiff_t step, std::ptrdiff_t page) {
    const std::ptrdiff_t value = counting.base + step * page;
    if (value <= 0 || (counting.digits != Digits::Decimal && value > 3999))
        return {};
    if (counting.digits == Digits::Decimal)
        return Str(value);
    const std::string roman = romanNumber(static_cast<int>(value));
    return counting.digits == Digits::SmallRoman ? roman : Uppercase(roman);
}

class NumberVote {
  public:
    explicit NumberVote(const std::vector<NumberGuess>& guesses) : guesses_(guesses), step_(stepOf(guesses)) {}

    std::ptrdiff_t step() const { return step_; }

    std::string numberOf(std::ptrdiff_t page) const {
        std::map<Counting, Support> votes;
        add(votes, page, kWeightOfOwn, Side::Own);
        for (const Side side : {Side::Before, Side::After}) {
            double across = 1;
            for (std::ptrdiff_t distance = 1; distance <= kReach; ++distance) {
                const std::ptrdiff_t other = side == Side::Before ? page - distance : page + distance;
                if (other < 0 || other >= static_cast<std::ptrdiff_t>(guesses_.size()))
                    break;
                if (guesses_[static_cast<std::size_t>(other)].readings.empty())
                    across *= kAcrossGap;
                add(votes, other, across / static_cast<double>(distance), side);
            }
        }
        const auto best = std::max_element(
            votes.begin(), votes.end(), [](const auto& a, const auto& b) { return a.second.weight < b.second.weight; });
        if (best == votes.end())
            return {};
        const Support& support = best->second;
        // A page without a reading has a number only if the pages on both sides agree on it.
        const bool known = guesses_[static_cast<std::size_t>(page)].readings.empty()
                               ? support.before && support.after
                               : support.pages > 1 || support.own || support.set;
        return known ? textOf(best->first, step_, page) : std::string();
    }

  private:
    enum class Side { Before, Own, After };

    struct Support {
        double weight = 0;
        std::size_t pages = 0;
        bool before = false, own = false, after = false, set = false;
    };

    void add(std::map<Counting, Support>& votes, std::ptrdiff_t page, double weight, Side side) const {
        const NumberGuess& guess = guesses_[static_cast<std::size_t>(page)];
        for (std::size_t i = 0; i < guess.readings.size() && (i == 0 || !guess.set); ++i) {
            const auto value = valueOf(guess.readings[i].text);
            if (!value)
                continue;
            Support& support = votes[{value->digits, value->value - step_ * page}];
            support.weight += weight * (guess.set ? kWeightOfSet : std::max(guess.readings[i].confidence, 0.05));
            ++support.pages;
            support.before = support.before || side == Side::Before;
            support.set = support.set || guess.set;
            support.own = support.own || side == Side::Own;
            support.after = support.after || side == Side::After;
        }
    }

    const std::vector<NumberGuess>& guesses_;
    std::ptrdiff_t step_;
};

/// The counting that each page's number belongs to, if the number is read on the page itself.
std::vector<std::optional<Counting>> countingsRead(const std::vector<NumberGuess>& guesses,
                                                   const std::vector<std::string>& numbers, std::ptrdiff_t step) {
    std::vector<std::optional<Counting>> countings(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::vector<Guess>& readings = guesses[i].readings;
        const std::optional<Value> value = valueOf(numbers[i]);
        if (value && !readings.empty() && readings.front().text == numbers[i])
            countings[i] = Counting{value->digits, value->value - step * static_cast<std::ptrdiff_t>(i)};
    }
    return countings;
}

/// Pages between two whose numbers are read and count on from one to the other count too, whatever was read on them.
void countOnBetween(const std::vector<NumberGuess>& guesses, std::vector<std::string>& numbers, std::ptrdiff_t step) {
    const std::vector<std::optional<Counting>> countings = countingsRead(guesses, numbers, step);
    std::map<Counting, std::size_t> support;
    for (const auto& counting : countings)
        if (counting)
            ++support[*counting];
    std::optional<std::size_t> before;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!countings[i] || support[*countings[i]] < kSureSupport)
            continue;
        const bool same = before && !(*countings[*before] < *countings[i]) && !(*countings[i] < *countings[*before]);
        for (std::size_t k = same ? *before + 1 : i; k < i; ++k)
            if (!guesses[k].set)
                numbers[k] = textOf(*countings[i], step, static_cast<std::ptrdiff_t>(k));
        before = i;
    }
}

} // namespace

std::vector<std::string> mendedNumbers(const std::vector<NumberGuess>& guesses) {
    const NumberVote vote(guesses);
    std::vector<std::string> numbers;
    numbers.reserve(guesses.size());
    for (std::size_t i = 0; i < guesses.size(); ++i)
        numbers.push_back(guesses[i].set && !guesses[i].readings.empty()
                              ? guesses[i].readings[0].text
                              : vote.numberOf(static_cast<std::ptrdiff_t>(i)));
    countOnBetween(guesses, numbers, vote.step());
    return numbers;
}

} // namespace velmarin
