#pragma once

#include "files/FolderItem.h"

#include <array>

namespace velmarin {

/// Any one of these makes a folder a dictionary to mSub_DicOrNot.
inline constexpr std::array kDictionaryMembers = {"FW",   "BW",    "ind",  "KW",   "KWTB", "format",
                                                  "mImg", "mPimg", "mHtm", "mMov", "mSnd"};

/// Whether install, update and export take a folder for a dictionary: not an alias, a directory, and any one of
/// kDictionaryMembers in it.
bool mSub_DicOrNot(const FolderItem& item);

} // namespace velmarin
