#pragma once

#include "draft/Draft.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The changes of a draft that can be taken back.
class DraftHistory {
  public:
    struct Step {
        std::string page;            ///< the page that was changed first
        std::vector<DraftPage> rows; ///< the changed rows as they were before, or as they are to be again
    };

    bool canUndo() const { return done_ > 0; }
    bool canRedo() const { return done_ < steps_.size(); }
    void clear();

    /// Notes a change. What was taken back before cannot be redone any more.
    void add(Step before);
    /// Takes a step back, or does it again: exchanges its rows with those of the draft that have the same page. Returns
    /// the page that was changed first; nullopt if there is no such step.
    std::optional<std::string> undo(Draft& draft);
    std::optional<std::string> redo(Draft& draft);

  private:
    std::string exchange(std::size_t step, Draft& draft);

    std::vector<Step> steps_;
    std::size_t done_ = 0; ///< the steps after these have been taken back
};

} // namespace velmarin
