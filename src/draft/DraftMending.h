#pragma once

#include "draft/Draft.h"
#include "draft/GuideSlots.h"
#include "making/KeyRule.h"
#include "reading/PageGuess.h"
#include "text/SearchWord.h"

#include <vector>

namespace velmarin {

/// Makes drafts of the guesses of a book. Keeps their search words, so that a draft can be made at each key.
class DraftMender {
  public:
    DraftMender(std::vector<PageGuess> guesses, KeyRule rule, IndexOrder order);

    /// Of the readings of each page it takes those that keep the order of the book, and says how far each can be
    /// trusted. `set` are the rows that a person has decided, which stay as they are and which the others are tested
    /// against; found by page.
    Draft mended(const std::vector<DraftPage>& set) const;

  private:
    std::vector<PageGuess> guesses_;
    KeyRule rule_;
    IndexOrder order_;
    std::vector<GuideSlot> slots_;
};

/// The same for a single draft.
Draft mendedDraft(const std::vector<PageGuess>& guesses, const std::vector<DraftPage>& set, const KeyRule& rule,
                  const IndexOrder& order);

} // namespace velmarin
