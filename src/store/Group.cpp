#include "store/Group.h"

#include "files/FolderListing.h"
#include "files/SystemCalls.h"
#include "store/GroupPreferences.h"
#include "text/Message.h"
#include "text/NilObjectException.h"

#include <cerrno>
#include <unordered_map>

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

/// Whether a folder may be a dictionary of its group. One that may not be entered hides its mark: it keeps its place
/// where the preferences list it, and is passed over otherwise, since it does not load.
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

/// Appends a dictionary and loads it; false if it does not load.
bool appendAndLoad(const FolderItem& folder, int imageMode, Group& into) {
    auto item = std::make_shared<DictionaryItem>();
    item->ImageMode = imageMode;
    into.dictionaries.push_back(item);
    try {
        if (MakeDictionaryItem(folder, *item, static_cast<int>(into.dictionaries.size()) - 1))
            return true;
        if (const int error = accessError(folder, X_OK); error != 0)
            item->failure = unreadable(folder, error);
    } catch (const NilObjectException& failure) {
        item->failure = failure.what();
    }
    if (!item->failure.empty())
        into.failures.push_back(item->failure);
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

void readListed(const FolderItem& file, const FolderListing& members, FoundDictionaries& found, Group& into,
                const std::function<void()>& afterEach) {
    const GroupPreferences preferences = preferencesOf(file, into);
    into.groupName = preferences.groupName;
    into.separately = preferences.separately;
    for (const GroupPreferences::Entry& entry : preferences.dictionaries) {
        const FolderItem folder = members.Child(entry.name);
        if (!found.take(folder))
            continue;
        appendAndLoad(folder, entry.ImageMode, into);
        if (afterEach)
            afterEach();
    }
}

} // namespace

Group readGroup(const FolderItem& group, const std::function<void()>& afterEach) {
    Group into;
    if (!group.Exists()) {
        group.CreateAsFolder();
        MsgBox("Threre are no dictionaries.");
    }
    const FolderListing members(group);
    if (const int error = accessError(group, R_OK | X_OK); error != 0 || !members.listed())
        throw NilObjectException(unreadable(group, error != 0 ? error : EIO));
    FoundDictionaries found(members);
    if (const FolderItem file = members.Child("DictionaryPreferences.txt"); file.Exists())
        readListed(file, members, found, into, afterEach);
    for (const FolderItem& folder : found.left()) {
        if (!appendAndLoad(folder, kAdjustByWidth, into))
            into.dictionaries.pop_back();
        if (afterEach)
            afterEach();
    }
    return into;
}

} // namespace velmarin
