#include "files/FolderItem.h"

#include "files/SystemCalls.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/UnicodeForms.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <sys/stat.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

std::optional<struct stat> statOf(const fs::path& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0)
        return std::nullopt;
    return found;
}

std::optional<struct stat> linkStatOf(const fs::path& path) {
    struct stat found {};
    if (::lstat(path.c_str(), &found) != 0)
        return std::nullopt;
    return found;
}

/// A way through a file, which nothing can be made at. The name stays recognisable for messages.
fs::path impossiblePath(std::string_view name) {
    std::string shown(name);
    for (char& c : shown) {
        if (c == '/' || c == '\0')
            c = '?';
    }
    if (shown.empty() || shown == "." || shown == "..")
        shown = "no name (" + shown + ")";
    return fs::path("/dev/null") / shown;
}

char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The first name in a folder, by ListingOrder, that folds as `name` does; empty if there is none. Folding in full
/// costs more than reading the folder does, so two ASCII names are compared directly.
std::string firstAlike(const fs::path& folder, std::string_view name) {
    const bool plain = isAscii(name);
    const std::string folded = foldedFileName(name);
    const auto alike = [&](const std::string& other) {
        if (plain && isAscii(other))
            return std::equal(name.begin(), name.end(), other.begin(), other.end(),
                              [](char a, char b) { return small(a) == small(b); });
        return foldedFileName(other) == folded;
    };
    std::string first;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const std::string other = entry->path().filename().native();
        if (alike(other) && (first.empty() || ListingOrder{}(other, first)))
            first = other;
    }
    return first;
}

fs::path withoutSlashAtTheEnd(fs::path path) {
    while (!path.has_filename() && path.has_relative_path())
        path = path.parent_path();
    return path;
}

} // namespace

bool isMemberName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos &&
           name.find('\0') == std::string_view::npos;
}

std::vector<std::string> sortedByListingOrder(std::vector<std::string> names) {
    struct Row {
        std::string capitals;
        std::string name;
    };
    std::vector<Row> rows;
    rows.reserve(names.size());
    for (std::string& name : names) {
        std::string capitals = Uppercase(name);
        rows.push_back({std::move(capitals), std::move(name)});
    }
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        const int order = a.capitals.compare(b.capitals);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    names.clear();
    for (Row& row : rows)
        names.push_back(std::move(row.name));
    return names;
}

std::optional<std::vector<std::string>> listNames(const fs::path& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        names.push_back(entry->path().filename().native());
    if (error) {
        errno = error.value();
        return std::nullopt;
    }
    return sortedByListingOrder(std::move(names));
}

FolderItem::FolderItem(fs::path path) : path_(std::move(path)) {
    if (path_.empty())
        return;
    path_ = withoutSlashAtTheEnd(std::move(path_));
    if (path_.filename() == "." || path_.filename() == "..") {
        std::error_code error;
        fs::path real = fs::canonical(path_, error);
        path_ = withoutSlashAtTheEnd(error ? fs::absolute(path_, error).lexically_normal() : std::move(real));
    }
}

const fs::path& FolderItem::path() const {
    if (path_.empty())
        throw NilObjectException("A file or folder was used that was never set.");
    return path_;
}

std::string FolderItem::AbsolutePath() const {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path(), error);
    if (!error && real.is_absolute())
        return real.native();
    return fs::absolute(path(), error).lexically_normal().native();
}

std::string FolderItem::Name() const {
    return path().filename().native();
}

bool FolderItem::Exists() const {
    return statOf(path()).has_value();
}

bool FolderItem::Directory() const {
    const auto found = statOf(path());
    return found && S_ISDIR(found->st_mode);
}

bool FolderItem::regularFile() const {
    const auto found = statOf(path());
    return found && S_ISREG(found->st_mode);
}

bool FolderItem::Alias() const {
    const auto found = linkStatOf(path());
    return found && S_ISLNK(found->st_mode);
}

bool FolderItem::occupied() const {
    return linkStatOf(path()).has_value();
}

bool FolderItem::Visible() const {
    return !Name().starts_with('.');
}

FolderItem FolderItem::Parent() const {
    const fs::path& own = path();
    if (own.has_parent_path())
        return FolderItem(own.parent_path());
    std::error_code error;
    return FolderItem(fs::absolute(own, error).parent_path());
}

FolderItem FolderItem::Child(std::string_view name) const {
    const fs::path& own = path();
    if (!isMemberName(name))
        return FolderItem(impossiblePath(name));
    FolderItem exact(own / name);
    if (exact.occupied())
        return exact;
    const std::string alike = firstAlike(own, name);
    return alike.empty() ? exact : FolderItem(own / alike);
}

std::vector<FolderItem> FolderItem::items() const {
    std::vector<FolderItem> all;
    if (const auto names = listNames(path())) {
        all.reserve(names->size());
        for (const std::string& name : *names)
            all.push_back(FolderItem(path_ / name));
    }
    return all;
}

FolderItem FolderItem::resolved() const {
    if (!Alias())
        return *this;
    std::error_code error;
    fs::path real = fs::canonical(path_, error);
    return error ? *this : FolderItem(std::move(real));
}

bool FolderItem::isSameItem(const FolderItem& other) const {
    const auto own = statOf(path());
    const auto others = statOf(other.path());
    return own && others && own->st_dev == others->st_dev && own->st_ino == others->st_ino;
}

bool FolderItem::CreateAsFolder() const {
    if (makeFolder(path()))
        return true;
    const int error = errno;
    const bool isThere = Directory();
    errno = error;
    return isThere;
}

} // namespace velmarin
