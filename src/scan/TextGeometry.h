#pragma once

#include "scan/PageText.h"

namespace velmarin {

/// The text as it lies on the page after a change of the page picture.
PageText scaledText(const PageText& text, int width, int height);
/// Turned clockwise by 0, 90, 180 or 270 degrees. The order of lines and words stays.
PageText turnedText(const PageText& text, int degrees);
/// The words whose middle is in the columns from `left` up to `right`, from which x counts.
PageText textInColumns(const PageText& text, int left, int right);

/// The smallest box that holds both; an empty one holds nothing.
PageBox unitedBox(const PageBox& one, const PageBox& other);

/// Appends a line with the box of its words, without words that have no text; no line if none has.
void appendLine(PageText& text, TextLine line);

} // namespace velmarin
