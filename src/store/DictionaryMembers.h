#pragma once

#include "files/FolderItem.h"

#include <array>

namespace velmarin {

/// Any one of these makes a folder a dictionary to mSub_DicOrNot.
inline constexpr std::array kDictionaryMembers = {"FW",   "BW",    "ind",  "KW",   "KWTB", "format",
                                                  "mImg", "mPimg", "mHtm", "mMov", "mSnd"};

/// Whether install, update and export treat an item as a dictionary: a directory, not an alias, that has any one of
/// kDictionaryMembers.
bool mSub_DicOrNot(const FolderItem& item);

} // namespace velmarin
