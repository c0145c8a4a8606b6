#pragma once

#include "book/BookSettings.h"

#include <string>

namespace velmarin {

// What a user does with single pages of a book. Pages are those of the scan, from 1.

/// Turns a page by so many degrees clockwise, from how it is turned now.
void turnPage(BookSettings& settings, int page, int degrees);

void leaveOutPage(BookSettings& settings, int page);

/// Counts the printed numbers from this one on; with an empty number, the pages from here on have none.
void numberPagesFrom(BookSettings& settings, int page, const std::string& number);

} // namespace velmarin
