#pragma once

#include "files/FolderItem.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velmarin {

/// A folder that is listed once, for callers that look for many members, most of which are usually absent. It finds
/// them as FolderItem::Child would have at the time of the listing, without reading the disk again.
class FolderListing {
  public:
    explicit FolderListing(FolderItem folder);

    const FolderItem& folder() const { return folder_; }
    /// False if the folder cannot be listed; `names` is then empty too.
    bool listed() const { return listed_; }
    /// In ListingOrder; empty if the folder cannot be listed.
    const std::vector<std::string>& names() const { return names_; }

    /// As FolderItem::Child. A folder that may be entered but not listed is asked member by member.
    FolderItem Child(std::string_view name) const;
    /// Whether there is such a member, not counting a broken link.
    bool has(std::string_view name) const { return Child(name).Exists(); }

  private:
    FolderItem folder_;
    bool listed_ = false;
    std::vector<std::string> names_;
    std::unordered_set<std::string> exact_;
    std::unordered_map<std::string, std::string> byFoldedName_;
};

} // namespace velmarin
