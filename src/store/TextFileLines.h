#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// Appends to `lines` the lines whose 1-based numbers are, ascending, in `lineNumbers`. It ends at a 0 or a repeated
/// number, whatever follows it. Reports a nil, missing or unreadable file, and an empty list, by
/// a message.
void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines);
/// 0 for a nil or missing file, and for what is not a file or cannot be read.
int mFiMod_GetLineCountFromTextFi(const FolderItem& file);

} // namespace velmarin
