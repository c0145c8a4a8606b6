#pragma once

#include "files/Result.h"
#include "files/Work.h"

#include <filesystem>
#include <vector>

namespace velmarin {

/// Items on their way into another folder, under their own names, all of them or none.
class Moves {
  public:
    /// By renaming, or if that is not possible by a verified copy, staged in `staging`. False with the failures
    /// if the item stays in its place.
    bool move(const std::filesystem::path& item, const std::filesystem::path& folder,
              const std::filesystem::path& staging, Work& work, Failures& failures);
    /// Takes back the moves since the object was made. False, with the failures, if one stays moved.
    bool undo(Work& work, Failures& failures);
    /// Ends them: removes the originals of what was copied. False with the failures if something of them is left.
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
