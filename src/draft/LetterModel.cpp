#include "draft/LetterModel.h"

#include <cmath>

namespace velmarin {

namespace {

/// How many letters a shorter sequence counts as, and how many different letters there are, about.
constexpr double kWeightOfShorter = 3, kAlphabet = 40;

/// Calls use(whole, i) for each letter i of a word and its end, after two marks of its beginning.
template <typename Use> void forEachLetter(std::string_view word, Use use) {
    const std::string whole = "^^" + std::string(word) + "$";
    for (std::size_t i = 2; i < whole.size(); ++i)
        use(whole, i);
}

double countIn(const std::unordered_map<std::string, double>& counts, const std::string& sequence) {
    const auto found = counts.find(sequence);
    return found == counts.end() ? 0 : found->second;
}

} // namespace

void LetterModel::count(Counts& counts, double& letters, std::string_view word) {
    forEachLetter(word, [&](const std::string& whole, std::size_t i) {
        for (std::size_t before = 0; before <= 2; ++before) {
            ++counts[whole.substr(i - before, before + 1)];
            ++counts[whole.substr(i - before, before) + '\n'];
        }
        ++letters;
    });
}

void LetterModel::add(std::string_view word) {
    count(counts_, letters_, word);
}

double LetterModel::logChance(std::string_view word, const Counts& without, double lettersWithout) const {
    double sum = 0;
    forEachLetter(word, [&](const std::string& whole, std::size_t i) {
        const auto times = [&](const std::string& sequence) {
            return countIn(counts_, sequence) - countIn(without, sequence);
        };
        double chance = (times(whole.substr(i, 1)) + 1) / (letters_ - lettersWithout + kAlphabet);
        for (std::size_t before = 1; before <= 2; ++before)
            chance = (times(whole.substr(i - before, before + 1)) + kWeightOfShorter * chance) /
                     (times(whole.substr(i - before, before) + '\n') + kWeightOfShorter);
        sum += std::log(chance);
    });
    return sum;
}

double LetterModel::logOdds(std::string_view word, std::string_view other, std::string_view counted) const {
    Counts without;
    double letters = 0;
    if (!counted.empty())
        count(without, letters, counted);
    return logChance(word, without, letters) - logChance(other, without, letters);
}

} // namespace velmarin
