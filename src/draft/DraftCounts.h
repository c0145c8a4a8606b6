#pragma once

#include "draft/Draft.h"

#include <array>
#include <cstddef>
#include <string>

namespace velmarin {

/// The number of pages in each state.
class DraftCounts {
  public:
    explicit DraftCounts(const Draft& draft);

    std::size_t of(PageState state) const { return pages_[static_cast<std::size_t>(state)]; }
    std::size_t toLookAt() const { return of(PageState::Doubtful); }
    /// "1,612 certain, 41 mended, 49 doubtful, 0 set: 49 to look at"
    std::string text() const;

  private:
    std::array<std::size_t, 4> pages_ = {};
};

} // namespace velmarin
