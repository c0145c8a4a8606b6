#include "store/Group.h"

#include "files/FolderListing.h"
#include "files/SystemCalls.h"
#include "store/GroupPreferences.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "threads/WorkerPool.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <future>
#include <iterator>
#include <unordered_map>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace {

/// Why access to a folder is refused, as an error number; 0 if it is granted. X_OK is to reach its members, R_OK to
/// list them.
int accessError(const FolderItem& folder, int access) {
    return ::faccessat(AT_FDCWD, folder.path().c_str(), access, AT_EACCESS) == 0 ? 0 : errno;
}

std::string unreadable(const FolderItem& folder, int error) {
    return "The folder \"" + folder.path().native() + "\" could not be read: " + errorInWords(error);
}

/// Whether a folder may be a dictionary of its group. One that may not be entered hides its mark: it does not load, so
/// it keeps its place if the preferences list it and is left out otherwise, and is reported in both cases.
bool mayBeDictionary(const FolderItem& item) {
    return item.resolved().Visible() && item.Directory() &&
           (item.Child("FW").Exists() || accessError(item, X_OK) == EACCES);
}

/// The dictionary folders of a group, each by one name: two links to one folder are one dictionary.
class FoundDictionaries {
  public:
    explicit FoundDictionaries(const FolderListing& group) {
        for (const std::string& name : group.names()) {
            const FolderItem item(group.folder().path() / name);
            if (!mayBeDictionary(item))
                continue;
            const std::string key = item.AbsolutePath();
            keyOfName_.emplace(name, key);
            order_.push_back(item);
            // The folder itself goes before a link to it, and among links the first.
            const auto [left, isNew] = left_.emplace(key, item);
            if (!isNew && left->second.Alias() && !item.Alias())
                left->second = item;
        }
    }

    /// Whether `item` is one that has not been taken yet, which it then is.
    bool take(const FolderItem& item) {
        const auto key = keyOfName_.find(item.Name());
        return key != keyOfName_.end() && left_.erase(key->second) > 0;
    }

    std::vector<FolderItem> left() const {
        std::vector<FolderItem> items;
        for (const FolderItem& item : order_) {
            const auto found = left_.find(keyOfName_.at(item.Name()));
            if (found != left_.end() && found->second == item)
                items.push_back(item);
        }
        return items;
    }

  private:
    std::vector<FolderItem> order_;
    std::unordered_map<std::string, std::string> keyOfName_;
    std::unordered_map<std::string, FolderItem> left_;
};

/// A folder that becomes a dictionary of the group, if it loads.
struct Candidate {
    FolderItem folder;
    std::shared_ptr<DictionaryItem> item;
    /// Whether the preferences name it, so that it keeps its place even if it does not load.
    bool listed;
};

/// Loads a dictionary. If it returns false, the item has the reason, unless a member is only missing.
bool load(const Candidate& candidate, bool findTxtLines) {
    DictionaryItem& item = *candidate.item;
    try {
        if (MakeDictionaryItem(candidate.folder, item, 0)) {
            if (findTxtLines)
                item.txtLines.findLines();
            return true;
        }
        if (const int error = accessError(candidate.folder, X_OK); error != 0)
            item.failure = unreadable(candidate.folder, error);
    } catch (const NilObjectException& failure) {
        item.failure = failure.what();
    }
    return false;
}

GroupPreferences preferencesOf(const FolderItem& file, Group& into) {
    try {
        return readGroupPreferences(file);
    } catch (const NilObjectException& failure) {
        into.failures.emplace_back(failure.what());
        into.preferencesRead = false;
        return {};
    }
}

std::vector<Candidate> candidatesIn(const FolderListing& members, Group& into) {
    FoundDictionaries found(members);
    std::vector<Candidate> candidates;
    const auto add = [&](const FolderItem& folder, int imageMode, bool listed) {
        auto item = std::make_shared<DictionaryItem>();
        item->ImageMode = imageMode;
        candidates.push_back({folder, std::move(item), listed});
    };
    if (const FolderItem file = members.Child("DictionaryPreferences.txt"); file.Exists()) {
        const GroupPreferences preferences = preferencesOf(file, into);
        into.groupName = preferences.groupName;
        into.separately = preferences.separately;
        for (const GroupPreferences::Entry& entry : preferences.dictionaries)
            if (const FolderItem folder = members.Child(entry.name); found.take(folder))
                add(folder, entry.ImageMode, true);
    }
    for (const FolderItem& folder : found.left())
        add(folder, kAdjustByWidth, false);
    return candidates;
}

/// Loads all on the threads of a pool, and takes what loads into `into`, in order.
void loadAll(const std::vector<Candidate>& candidates, const GroupReading& how, Group& into) {
    if (candidates.empty())
        return;
    constexpr std::chrono::milliseconds kBetweenCalls{20};
    WorkerPool pool(std::min(WorkerPool::coreCount(), static_cast<unsigned>(candidates.size())));
    std::vector<std::future<bool>> outcomes;
    outcomes.reserve(candidates.size());
    for (const Candidate& candidate : candidates)
        outcomes.push_back(pool.run([&] { return load(candidate, how.findTxtLines); }));
    const auto reportProgress = [&](std::size_t done) {
        if (how.onProgress && !how.onProgress(done, candidates.size()) && !into.stopped) {
            into.stopped = true;
            pool.drop();
        }
    };
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        // Also after a stop: what has begun may wait for a disk, and the window must stay alive.
        while (outcomes[i].wait_for(kBetweenCalls) != std::future_status::ready)
            reportProgress(i);
        if (into.stopped)
            continue;
        const bool complete = outcomes[i].get();
        const std::shared_ptr<DictionaryItem>& item = candidates[i].item;
        if (candidates[i].listed || complete) {
            item->TabNum = static_cast<int>(into.dictionaries.size());
            into.dictionaries.push_back(item);
        }
        if (!item->failure.empty())
            into.failures.push_back(item->failure);
        reportProgress(i + 1);
    }
}

} // namespace

Group readGroup(const FolderItem& group, const GroupReading& how) {
    Group into;
    if (!group.Exists()) {
        group.CreateAsFolder();
        MsgBox("Threre are no dictionaries.");
    }
    const FolderListing members(group);
    if (const int error = accessError(group, R_OK | X_OK); error != 0 || !members.listed())
        throw NilObjectException(unreadable(group, error != 0 ? error : EIO));
    loadAll(candidatesIn(members, into), how, into);
    return into;
}

} // namespace velmarin
