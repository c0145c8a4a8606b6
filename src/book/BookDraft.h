#pragma once

#include "book/BookFolder.h"

#include <string>
#include <vector>

namespace velmarin {

/// The draft of what was read of a book so far, with a row for each page. Rows of `before` that a person has set stay
/// as they are. Printed numbers that the settings give go before those that were read.
Draft draftOfReadings(const BookFolder& book, const Draft& before);

/// A draft, and how the pages of the book differ from those of the one before.
struct DraftUpdate {
    Draft draft = {};
    std::vector<std::string> added = {}, removed = {}; ///< empty for a first draft
};

/// What has happened to a book since its draft was made.
enum class BookChange {
    None,
    Readings,   ///< or settings
    Unfinished, ///< readings, and pages may still have to be taken out of the scan: set rows without a page stay
};

/// Makes the draft again and saves it, if the change or other pages ask for it. Otherwise it stays as it was edited.
Result updateDraft(const BookFolder& book, const Draft& before, BookChange change, DraftUpdate& update);

} // namespace velmarin
