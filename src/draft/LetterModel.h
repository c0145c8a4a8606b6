#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace velmarin {

/// How usual the letters of a word are in the words of a book: the chance of each letter after the two before it,
/// steadied by those after one and none (interpolated trigrams: Witten and Bell, "The zero-frequency problem", 1991).
/// Words are taken byte by byte.
class LetterModel {
  public:
    void add(std::string_view word);

    /// The logarithm of the chance of `word` to that of `other`, as if `counted`, a word that was added, were not;
    /// empty for none.
    double logOdds(std::string_view word, std::string_view other, std::string_view counted) const;

  private:
    using Counts = std::unordered_map<std::string, double>;

    static void count(Counts& counts, double& letters, std::string_view word);
    double logChance(std::string_view word, const Counts& without, double lettersWithout) const;

    Counts
        counts_; ///< of sequences of up to three bytes, and of what is before the last one, marked by a trailing '\n'
    double letters_ = 0;
};

} // namespace velmarin
