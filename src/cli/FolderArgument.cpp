#include "cli/FolderArgument.h"

#include "files/FolderListing.h"
#include "side/UserDictionary.h"
#include "store/DictionaryMembers.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>

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

/// Whether the path leads to nothing that is a folder, such as a file or a dead link.
bool meansNoFolder(const std::error_code& error) {
    return error == std::errc::not_a_directory || error == std::errc::no_such_file_or_directory ||
           error == std::errc::too_many_symbolic_link_levels;
}

/// Reports the closed folders of a group that may be dictionaries but are not among those that were read. (A dictionary
/// that may be entered but not listed is read, and one that the preferences list is reported by readGroup.)
void reportClosed(const FolderItem& folder, const Group& group, Session& session) {
    std::unordered_set<std::string> read;
    for (const auto& item : group.dictionaries)
        read.insert(item->DictionaryFolderitem.AbsolutePath());
    for (const GroupFolders::Closed& closed : foldersOf(folder).closed) {
        if (!read.contains(closed.folder.AbsolutePath()))
            session.couldNot(inWords(closed));
    }
}

} // namespace

FolderItem folderArgument(const std::string& argument) {
    if (argument.empty())
        throw CannotDo("an empty name is not a folder");
    if (const std::error_code error = folderError(argument))
        throw CannotDo(argument + ": " + error.message());
    return FolderItem(fs::path(argument));
}

std::vector<FolderItem> folderArguments(const std::vector<std::string>& arguments, const FolderFilter& filter,
                                        Session& session) {
    std::vector<FolderItem> found;
    std::vector<std::string> others;
    for (const std::string& argument : arguments) {
        try {
            const FolderItem folder = isNotAFolder(argument) ? FolderItem() : folderArgument(argument);
            if (!folder.isNil() && filter.accepts(folder))
                found.push_back(folder);
            else
                others.push_back(argument);
        } catch (const CannotDo& error) {
            session.couldNot(error.what());
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

GroupFolders foldersOf(const FolderItem& group) {
    GroupFolders found;
    for (const FolderItem& item : group.items()) {
        if (!item.Visible() || equalStrings(item.Name(), kUserDictionariesFolder))
            continue;
        if (const std::error_code error = folderError(item.path())) {
            if (!meansNoFolder(error))
                found.closed.push_back({item, error.message()});
        } else if (mSub_DicOrNot(item.resolved())) {
            found.dictionaries.push_back(item);
        }
    }
    return found;
}

std::string inWords(const GroupFolders::Closed& closed) {
    return closed.folder.path().native() + ": " + closed.reason;
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
    return hasFile || foldersOf(followed).dictionaries.empty();
}

Group groupArgument(const std::string& argument, Session& session) {
    const FolderItem folder = folderArgument(argument);
    session.setSubject(argument);
    Group group = readGroup(folder);
    for (const std::string& failure : group.failures)
        session.couldNot(failure);
    if (group.dictionaries.empty() && isDictionary(folder))
        throw CannotDo(argument + ": this is a dictionary; give the folder that holds it, its group");
    reportClosed(folder, group, session);
    return group;
}

} // namespace velmarin
