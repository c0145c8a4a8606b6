#pragma once

#include "files/AtomicFile.h"
#include "files/FolderItem.h"

#include <functional>
#include <string_view>

namespace velmarin {

class ProgressPort;
class DictionaryModule;

/// Makes the index of a source file, as `mDic_MakeIndex` describes it, and passes its bytes to `write`. Fails if the
/// source cannot be read or `write` fails.
Result makeUserDictionaryIndex(const DictionaryModule& module, const FolderItem& source, ProgressPort& progress,
                               const std::function<Result(std::string_view bytes)>& write);

} // namespace velmarin
