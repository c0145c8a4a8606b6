#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// Appends the lines with the numbers `lineNumbers`, which count from 1 and ascend, to `lines`. It stops at the first 0
/// or repeated number. It shows a message for a nil, missing or unreadable file, and for an empty
/// list. Raises NilObjectException if the disk fails.
void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines);
/// 0 for a nil or missing file, and for an item that is not a file or cannot be read.
int mFiMod_GetLineCountFromTextFi(const FolderItem& file);

} // namespace velmarin
