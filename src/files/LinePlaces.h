#pragma once

#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <vector>

namespace velmarin {

/// Where lines of a text file begin, as far as it was read. Lines are those of LineScanner.
struct LinePlaces {
    /// The interval, in lines, at which places are kept.
    static constexpr std::uint64_t kStep = 64;

    /// Where lines 1, 1 + kStep, 1 + 2 kStep ... begin, in bytes.
    std::vector<std::uint64_t> everyNth;
    /// How many lines are known.
    std::uint64_t lines = 0;
    /// Where the line after these begins, or the end of the file.
    std::uint64_t end = 0;

    /// How many bytes the known lines have from everyNth[i] to the next kept place, or to `end`.
    std::uint64_t bytesFrom(std::size_t i) const {
        return (i + 1 < everyNth.size() ? everyNth[i + 1] : end) - everyNth[i];
    }

    /// Adds the line after the known ones, which ends before `next`.
    void add(std::uint64_t next) {
        if (lines % kStep == 0)
            everyNth.push_back(end);
        ++lines;
        end = next;
    }
};

/// The places of all lines: for each line what LineScanner finds, but counted block by block. Raises
/// NilObjectException if the disk fails.
LinePlaces findLinePlaces(const ReadOnlyFile& file);

} // namespace velmarin
