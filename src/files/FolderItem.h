#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A reference to a file or folder, which need not exist. A default-constructed one is nil; using it raises
/// NilObjectException. An alias is a symbolic link.
class FolderItem {
  public:
    FolderItem() = default;
    explicit FolderItem(std::filesystem::path path);

    bool isNil() const { return path_.empty(); }
    /// The path as it was reached: links in it are not resolved.
    const std::filesystem::path& path() const;
    /// The absolute path without ".", ".." and links, which is the same for every way to one item.
    std::string AbsolutePath() const;

    std::string Name() const;
    /// Whether the item exists, links followed: a broken link does not.
    bool Exists() const;
    bool Directory() const;
    bool regularFile() const;
    /// Whether the item itself is a link.
    bool Alias() const;
    /// Whether its name is taken, even by a broken link.
    bool occupied() const;
    /// Whether its name does not begin with a dot.
    bool Visible() const;
    FolderItem Parent() const;

    /// The item called `name` in this folder: the exact name first, then one that is equal when case and Unicode
    /// composition are ignored (the first in listing order). If there is none, an item that does not exist.
    /// A name that is not a single path component (empty, ".", "..", with "/" or NUL) gives one that does not exist and
    /// cannot be made.
    FolderItem Child(std::string_view name) const;

    /// The items that listNames names, links unresolved. Empty if the folder cannot be listed.
    std::vector<FolderItem> items() const;
    /// What this item leads to if it is a link; a broken link itself.
    FolderItem resolved() const;
    /// Whether both lead to one item on the disk, by device and inode. False if either does not exist.
    bool isSameItem(const FolderItem& other) const;

    /// Makes the folder. Returns false with errno if it is not there afterwards.
    bool CreateAsFolder() const;

    friend bool operator==(const FolderItem& a, const FolderItem& b) { return a.path_ == b.path_; }

  private:
    std::filesystem::path path_;
};

/// Whether a name is one path component that a folder can hold: not empty, not "." or "..", no "/" and no NUL.
bool isMemberName(std::string_view name);

/// Sorts names as ListingOrder does, but converts each to capitals only once.
std::vector<std::string> sortedByListingOrder(std::vector<std::string> names);

/// The names in a folder in ListingOrder; nullopt with errno if it cannot be listed.
std::optional<std::vector<std::string>> listNames(const std::filesystem::path& folder);

} // namespace velmarin
