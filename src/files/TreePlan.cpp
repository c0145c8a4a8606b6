#include "files/TreePlan.h"

#include "files/FolderItem.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Of a folder: device and inode.
using Identity = std::pair<dev_t, ino_t>;

Identity identityOf(const struct stat& found) {
    return {found.st_dev, found.st_ino};
}

/// The folder itself and all that it lies in.
std::vector<Identity> folderAndThoseAbove(const fs::path& folder) {
    std::vector<Identity> chain;
    std::error_code error;
    // It may be about to be made, and a relative path to nothing has nothing above it.
    const fs::path whole = fs::absolute(folder, error);
    if (error)
        return chain;
    fs::path at = fs::weakly_canonical(whole, error);
    if (error)
        return chain;
    for (;; at = at.parent_path()) {
        struct stat found {};
        if (::stat(at.c_str(), &found) == 0)
            chain.push_back(identityOf(found));
        if (!at.has_relative_path())
            return chain;
    }
}

bool has(const std::vector<Identity>& all, Identity one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

class Planner {
  public:
    Planner(const fs::path& destination, Links links, Purpose purpose, Work& work, const fs::path& whole)
        : links_(links), purpose_(purpose), work_(work), visibleOnly_(!whole.empty()),
          above_(folderAndThoseAbove(destination)) {
        std::error_code error;
        if (!whole.empty())
            whole_ = fs::canonical(whole, error);
    }

    TreePlan plan(const fs::path& source) {
        plan_.source = source;
        std::error_code error;
        if (whole_.empty() && !fs::is_symlink(source, error))
            whole_ = fs::canonical(source, error);
        add({});
        return std::move(plan_);
    }

  private:
    void add(const std::string& name) {
        work_.pass();
        PlannedItem item;
        item.name = name;
        const fs::path path = plan_.pathOf(item);
        struct stat found {};
        const int answer = links_ == Links::Kept ? ::lstat(path.c_str(), &found) : ::stat(path.c_str(), &found);
        if (answer != 0)
            return addMissing(path, errno);
        item.permissions = found.st_mode & 0777;
        item.read = found.st_atim;
        item.changed = found.st_mtim;
        if (S_ISDIR(found.st_mode))
            return addFolder(std::move(item), identityOf(found));
        if (S_ISREG(found.st_mode))
            return addFile(std::move(item), static_cast<std::uint64_t>(found.st_size));
        if (S_ISLNK(found.st_mode))
            return addLink(std::move(item));
        leaveOut(path, "it is neither a file nor a folder, and was left out");
    }

    void addMissing(const fs::path& path, int error) {
        struct stat found {};
        const bool link = ::lstat(path.c_str(), &found) == 0 && S_ISLNK(found.st_mode);
        if (link && error == ENOENT)
            return leaveOut(path, "it is a link that leads nowhere, and was left out");
        if (link && error == ELOOP)
            return leaveOut(path, "it is a link that leads in a circle, and was left out");
        plan_.unreadable.push_back({FolderItem(path), error == ENOENT ? "it is not there" : errorInWords(error)});
    }

    void addFile(PlannedItem item, std::uint64_t size) {
        const fs::path path = plan_.pathOf(item);
        if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
            plan_.unreadable.push_back({FolderItem(path), errorInWords(errno)});
            return;
        }
        item.kind = PlannedItem::Kind::File;
        item.size = size;
        plan_.bytes += size;
        plan_.items.push_back(std::move(item));
    }

    void addLink(PlannedItem item) {
        const fs::path path = plan_.pathOf(item);
        std::error_code error;
        item.kind = PlannedItem::Kind::Link;
        item.leadsTo = fs::read_symlink(path, error).native();
        if (error)
            plan_.unreadable.push_back({FolderItem(path), error.message()});
        else if (purpose_ == Purpose::Copy && !leadsToTheSame(item))
            plan_.unreadable.push_back({FolderItem(path), "it is a link that leads nowhere"});
        else
            plan_.items.push_back(std::move(item));
    }

    bool isInWhole(const fs::path& path) const {
        if (whole_.empty())
            return false;
        const auto [inWhole, inPath] = std::mismatch(whole_.begin(), whole_.end(), path.begin(), path.end());
        if (inWhole != whole_.end())
            return false;
        return !visibleOnly_ || inPath == path.end() || !inPath->native().starts_with('.');
    }

    /// Rewrites a relative link that the copy would lead elsewhere. False for one that leads nowhere.
    bool leadsToTheSame(PlannedItem& item) const {
        const fs::path leadsTo(item.leadsTo);
        if (leadsTo.is_absolute())
            return true;
        std::error_code error;
        const fs::path link = plan_.pathOf(item);
        const fs::path target = fs::canonical(link, error);
        if (error)
            return false;
        const fs::path folder = fs::canonical(fs::absolute(link).parent_path(), error);
        fs::path at = folder;
        if (std::all_of(leadsTo.begin(), leadsTo.end(), [&](const fs::path& step) {
                at = (at / step).lexically_normal();
                return isInWhole(at);
            }))
            return true; // its way does not leave what is copied
        item.leadsTo = (isInWhole(target) ? target.lexically_relative(folder) : target).native();
        return true;
    }

    void addFolder(PlannedItem item, Identity self) {
        const fs::path path = plan_.pathOf(item);
        if (has(open_, self))
            return leaveOut(path, "it is a link back into the folder that is being copied, and was left out");
        if (has(above_, self))
            return leaveOut(path, "a folder cannot be copied into itself");
        const int ways = ++ways_[self];
        if (ways > kMostWays) {
            if (ways == kMostWays + 1)
                plan_.unreadable.push_back({FolderItem(path), "links lead to it in too many ways"});
            return;
        }
        const auto names = listNames(path);
        if (!names) {
            plan_.unreadable.push_back({FolderItem(path), "it cannot be listed: " + errorInWords(errno)});
            return;
        }
        item.kind = PlannedItem::Kind::Folder;
        const std::string name = item.name;
        plan_.items.push_back(std::move(item));
        open_.push_back(self);
        for (const std::string& each : *names) {
            if (purpose_ == Purpose::Move || !isTemporaryName(each))
                add(name.empty() ? each : name + "/" + each);
        }
        open_.pop_back();
    }

    void leaveOut(const fs::path& path, std::string reason) {
        plan_.leftOut.push_back({FolderItem(path), std::move(reason)});
    }

    Links links_;
    Purpose purpose_;
    Work& work_;
    bool visibleOnly_; ///< of the whole
    std::vector<Identity> above_;
    std::vector<Identity> open_;
    std::map<Identity, int> ways_;
    TreePlan plan_;
    fs::path whole_;
};

} // namespace

TreePlan planTree(const fs::path& source, const fs::path& destination, Links links, Purpose purpose, Work& work,
                  const fs::path& whole) {
    return Planner(destination, links, purpose, work, whole).plan(source);
}

bool liesIn(const fs::path& item, const fs::path& folder) {
    struct stat found {};
    return ::stat(folder.c_str(), &found) == 0 && has(folderAndThoseAbove(item), identityOf(found));
}

} // namespace velmarin
