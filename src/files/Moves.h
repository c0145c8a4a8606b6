#pragma once

#include "files/Result.h"
#include "files/Work.h"

#include <filesystem>
#include <vector>

namespace velmarin {

/// Moves items into another folder under their own names. Either `finish` completes all moves, or `undo` takes all
/// back.
class Moves {
  public:
    /// By renaming, or if that is not possible by a verified copy, staged in `staging`. False with the failures
    /// if the item stays in its place.
    bool move(const std::filesystem::path& item, const std::filesystem::path& folder,
              const std::filesystem::path& staging, Work& work, Failures& failures);
    /// Takes all moves back. False, with the failures, if an item could not be moved back.
    bool undo(Work& work, Failures& failures);
    /// Removes the originals of items that had to be copied. False, with the failures, if something of them is left.
    bool finish(Work& work, Failures& failures);

    /// Where the items are now, in order.
    std::vector<std::filesystem::path> moved() const;

  private:
    struct Each {
        std::filesystem::path from;
        std::filesystem::path to;
        bool copied;
    };
    std::vector<Each> done_;
};

} // namespace velmarin
