#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <string_view>

namespace velmarin {

class ProgressPort;
class DictionaryModule;

/// The index of a source file as `mDic_MakeIndex` makes it, handed whole to `write`. False where the source cannot be
/// read, or where `write` returns false.
bool makeUserDictionaryIndex(const DictionaryModule& module, const FolderItem& source, ProgressPort& progress,
                             const std::function<bool(std::string_view)>& write);

} // namespace velmarin
