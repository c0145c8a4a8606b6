#pragma once

#include "reading/PageGuess.h"
#include "text/SearchWord.h"
#include "workshop/Draft.h"
#include "workshop/KeyRule.h"

#include <vector>

namespace velmarin {

/// Makes a draft of the guesses: of the readings of each page it takes those that keep the order of the book, and says
/// how far each can be trusted. `set` are the rows that a person has decided, which stay as they are and which the
/// others are tested against; found by page.
Draft mendedDraft(const std::vector<PageGuess>& guesses, const std::vector<DraftPage>& set, const KeyRule& rule,
                  const IndexOrder& order);

} // namespace velmarin
