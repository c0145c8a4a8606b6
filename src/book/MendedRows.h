#pragma once

#include "draft/Draft.h"
#include "files/FolderItem.h"

namespace velmarin {

// The rows of a draft as the last mending gave them, in a file beside the draft and in its format. By it a row that was
// edited in a spreadsheet is known, whose state the user did not change to `set`.

/// Keeps the rows that no person has set. Called before the draft is written. Writes only if one of them has changed.
Result keepMendedRows(const Draft& draft, const FolderItem& file);

/// Counts a row as set whose number, first or last word is another than the kept one; a row without words is not
/// counted so. A draft that is older than `file` was not
/// edited: the run that wrote `file` ended before it could write the draft.
void setEditedRows(Draft& draft, const FolderItem& draftFile, const FolderItem& file);

} // namespace velmarin
