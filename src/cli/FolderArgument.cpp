#include "cli/FolderArgument.h"

#include "store/DictionaryItem.h"
#include "files/FolderListing.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Something that exists and is not a folder, such as a file.
bool isNotAFolder(const std::string& argument) {
    const FolderItem item{fs::path(argument)};
    return !argument.empty() && item.Exists() && !item.Directory();
}

} // namespace

FolderItem folderArgument(const std::string& argument) {
    if (argument.empty())
        throw CannotDo("an empty name is not a folder");
    std::error_code error;
    // Opened for listing only to learn whether it can be.
    const fs::directory_iterator listing(fs::path(argument), error);
    if (error)
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

bool isDictionary(const FolderItem& folder) {
    const FolderItem followed = folder.resolved();
    if (!mSub_DicOrNot(followed))
        return false;
    const FolderListing members(followed);
    return std::any_of(kDictionaryMembers.begin(), kDictionaryMembers.end(), [&](const char* name) {
        const FolderItem member = members.Child(name);
        return member.Exists() && !mSub_DicOrNot(member.resolved());
    });
}

ReadGroup groupArgument(const std::string& argument, Session& session) {
    const FolderItem folder = folderArgument(argument);
    session.setSubject(argument);
    ReadGroup group = readGroup(folder);
    for (const std::string& failure : group.failures)
        session.couldNot(failure);
    if (group.dictionaries.empty() && isDictionary(folder))
        throw CannotDo(argument + ": this is a dictionary; give the folder that holds it, its group");
    return group;
}

} // namespace velmarin
