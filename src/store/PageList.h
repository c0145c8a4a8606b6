#pragma once

#include "files/FolderItem.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// The pages of a dictionary in order: row n of the jump menu shows captions[n] and selects names[n].
struct PageList {
    std::vector<std::string> names;
    std::vector<std::string> captions;
};

/// Image file name to its position in the page list. Names are equal when case and Unicode composition are ignored; of
/// equal names the later position counts.
class ImageDictionaryMap {
  public:
    void clear() { positions_.clear(); }
    void set(std::string_view name, int position);
    /// 0 for a name that is not there: the first page in the menu.
    int value(std::string_view name) const;
    bool has(std::string_view name) const;

  private:
    std::unordered_map<std::string, int> positions_;
};

/// The page list of a dictionary's `mImg`: `ImageIndex2` (name, TAB, caption) or else `ImageIndex` (name), whose first
/// line is the index of the last page. If there is neither, `ImageIndex` is made; if it cannot be written, as on a
/// read-only medium, the list of the pictures is used without it.
///
/// Raises NilObjectException if an index cannot be opened, or if there is none and no picture. A first line that
/// is not a number counts as 0. An index that promises more lines than it has gives empty names up to the promised
/// count, at most kMostPages of them.
PageList readPageList(const FolderItem& imageFolder);
inline constexpr int kMostPages = 200'000;

} // namespace velmarin
