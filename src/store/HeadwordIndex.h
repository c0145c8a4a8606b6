#pragma once

#include "store/IndexWords.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmarin {

/// The search words of one dictionary in file order (`IND`): one buffer of text with 32-bit offsets.
///
/// firstGreater finds the first entry greater than the word, as a loop from the front would, in any list. It bisects
/// over the running maximum of the entries, which is stored only if the list is not sorted, for one entry in kBlock.
class HeadwordIndex {
  public:
    HeadwordIndex() = default;
    /// The words of a whole index; finish() need not be called.
    explicit HeadwordIndex(IndexWords words);
    /// `word` is an upper-case form; words are compared by bytes. False if the buffer would exceed 4 GiB.
    bool append(std::string_view word);
    /// To be called once after the last append.
    void finish();

    std::size_t size() const;
    std::string_view operator[](std::size_t i) const;

    /// The first i with word < (*this)[i]; size() if there is none. `word` is an upper-case form.
    std::size_t firstGreater(std::string_view word) const;

  private:
    static constexpr std::size_t kBlock = 16;

    bool inOrder() const;

    IndexWords words_;
    /// The number of the greatest among the entries up to the end of each full block.
    std::vector<std::uint32_t> greatestSoFar_;
    bool sorted_ = true;
};

} // namespace velmarin
