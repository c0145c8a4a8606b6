#include "cli/FolderArgument.h"

#include "files/FolderListing.h"
#include "files/Leftovers.h"
#include "maintenance/MaintenanceResult.h"
#include "side/UserDictionary.h"
#include "store/DictionaryMembers.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <unordered_set>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Something that exists and is not a folder, such as a file.
bool isNotAFolder(const std::string& argument) {
    const FolderItem item{fs::path(argument)};
    return !argument.empty() && item.Exists() && !item.Directory();
}

/// Why `folder` cannot be listed or entered; no error if it can.
std::error_code folderError(const fs::path& folder) {
    std::error_code error;
    // Without "." a folder that may be listed but not entered would open.
    const fs::directory_iterator listing(folder / ".", error);
    return error;
}

/// Whether the path leads to a file or to nothing, so that it is not a folder at all.
bool meansNotAFolder(const std::error_code& error) {
    return error == std::errc::not_a_directory || error == std::errc::no_such_file_or_directory ||
           error == std::errc::too_many_symbolic_link_levels;
}

/// Reports the unreadable folders of a group, except dictionaries that readGroup has read (which may be entered but not
/// listed) or has reported itself, and the unreadable folders of pages.
void reportUnreadable(const FolderItem& folder, const Group& group, Session& session) {
    std::unordered_set<std::string> read;
    for (const auto& item : group.dictionaries) {
        read.insert(item->DictionaryFolderitem.AbsolutePath());
        const std::error_code error = item->loaded ? folderError(item->ImageFolder.path()) : std::error_code();
        if (error && !meansNotAFolder(error))
            session.couldNot({item->ImageFolder, error.message()});
    }
    for (const Failure& unreadable : foldersIn(folder).unreadable) {
        // readGroup has reported what may not be entered.
        const bool reported =
            ::faccessat(AT_FDCWD, unreadable.item.path().c_str(), X_OK, AT_EACCESS) != 0 && errno == EACCES;
        if (!reported && !read.contains(unreadable.item.AbsolutePath()))
            session.couldNot(unreadable);
    }
}

void noteInterruptedUpdates(const FolderItem& group) {
    for (const FolderItem& item : group.items())
        if (item.Visible() && holdsInterruptedSwap(item.path()))
            complain(item.path().native() + ": " + kInterruptedUpdate);
}

} // namespace

std::optional<FolderItem> folderArgument(const std::string& argument, Session& session) {
    const std::error_code error = argument.empty() ? std::error_code() : folderError(argument);
    if (!argument.empty() && !error)
        return FolderItem(fs::path(argument));
    session.couldNot(argument.empty() ? kEmptyFolderName : argument + ": " + error.message());
    return std::nullopt;
}

std::optional<FolderItem> dictionaryArgument(const std::string& argument, Session& session) {
    auto folder = folderArgument(argument, session);
    if (folder && !mSub_DicOrNot(*folder)) {
        session.couldNot(argument + ": " + kNotADictionary);
        folder.reset();
    }
    return folder;
}

std::vector<FolderItem> folderArguments(const std::vector<std::string>& arguments, const FolderFilter& filter,
                                        Session& session) {
    std::vector<FolderItem> found;
    std::vector<std::string> others;
    for (const std::string& argument : arguments) {
        if (isNotAFolder(argument)) {
            others.push_back(argument);
        } else if (const auto folder = folderArgument(argument, session)) {
            if (filter.accepts(*folder))
                found.push_back(*folder);
            else
                others.push_back(argument);
        }
    }
    for (const std::string& argument : others) {
        if (found.empty())
            session.couldNot(argument + ": " + filter.refusal);
        else
            complain(argument + ": " + filter.note);
    }
    return found;
}

GroupFolders foldersIn(const FolderItem& group) {
    GroupFolders found;
    for (const FolderItem& item : group.items()) {
        if (!item.Visible() || equalStrings(item.Name(), kUserDictionariesFolder))
            continue;
        if (const std::error_code error = folderError(item.path())) {
            if (!meansNotAFolder(error))
                found.unreadable.push_back({item, error.message()});
        } else if (mSub_DicOrNot(item.resolved())) {
            found.dictionaries.push_back(item);
        }
    }
    return found;
}

bool isDictionary(const FolderItem& folder) {
    const FolderItem followed = folder.resolved();
    if (!mSub_DicOrNot(followed))
        return false;
    const FolderListing members(followed);
    const bool hasFile = std::any_of(kDictionaryMembers.begin(), kDictionaryMembers.end(), [&](const char* name) {
        const FolderItem member = members.Child(name);
        return member.Exists() && !member.Directory();
    });
    return hasFile || foldersIn(followed).dictionaries.empty();
}

std::optional<Group> groupArgument(const std::string& argument, Session& session) {
    const auto folder = folderArgument(argument, session);
    if (!folder)
        return std::nullopt;
    session.setSubject(argument);
    Group group = readGroup(*folder);
    for (const std::string& failure : group.failures)
        session.couldNot(failure);
    if (group.dictionaries.empty() && isDictionary(*folder)) {
        session.couldNot(argument + ": this is a dictionary; give the folder that holds it, its group");
        return std::nullopt;
    }
    reportUnreadable(*folder, group, session);
    noteInterruptedUpdates(*folder);
    return group;
}

} // namespace velmarin
