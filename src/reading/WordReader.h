#pragma once

#include "reading/Recognizer.h"
#include "reading/WordGroups.h"

#include <vector>

namespace velmarin {

/// How often words are read: three to five times, or twice.
enum class Effort { Full, Quick };

/// Reads a row of the page. Each group of words is read several times, from pictures of different sharpness, and the
/// readings vote: a word's confidence says how likely it is right, and its other readings are those that lost. Boxes
/// are in pixels of the page picture; `words` is empty if nothing was read.
TextLine readRow(Recognizer& recognizer, const Picture& picture, const StraightPage& page, const PageBox& row,
                 Effort effort = Effort::Full, RowEnd end = RowEnd::Open);

/// Whether a text consists of digits.
bool isNumber(const std::string& text);

} // namespace velmarin
