#include "cli/FolderArgument.h"

#include "store/DictionaryItem.h"

#include <filesystem>
#include <system_error>

namespace velmarin {

namespace fs = std::filesystem;

FolderItem folderArgument(const std::string& argument) {
    if (argument.empty())
        throw CannotDo("an empty name is no folder");
    std::error_code error;
    // To begin the listing is to know that there is a folder, and one that may be read.
    const fs::directory_iterator listing(fs::path(argument), error);
    if (error)
        throw CannotDo(argument + ": " + error.message());
    return FolderItem(fs::path(argument));
}

ReadGroup groupArgument(const std::string& argument, Session& session) {
    const FolderItem folder = folderArgument(argument);
    session.setSubject(argument);
    ReadGroup group = readGroup(folder);
    for (const std::string& failure : group.failures)
        session.couldNot(failure);
    if (group.dictionaries.empty() && mSub_DicOrNot(folder.resolved()))
        throw CannotDo(argument + ": this is a dictionary, and a group is asked for, the folder that holds it");
    return group;
}

} // namespace velmarin
