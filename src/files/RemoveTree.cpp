#include "files/RemoveTree.h"

#include "files/FolderItem.h"
#include "files/SystemCalls.h"

#include <cerrno>
#include <string>

#include <sys/stat.h>

namespace velmarin {

namespace fs = std::filesystem;

bool removeTree(const fs::path& item, Work& work) {
    work.pass();
    struct stat found {};
    if (::lstat(item.c_str(), &found) != 0)
        return errno == ENOENT;
    if (!S_ISDIR(found.st_mode))
        return removeFile(item);
    if ((found.st_mode & S_IRWXU) != S_IRWXU)
        openToOwner(item);
    int firstError = 0;
    const auto names = listNames(item);
    if (!names)
        firstError = errno;
    else
        for (const std::string& name : *names) {
            if (!removeTree(item / name, work) && firstError == 0)
                firstError = errno;
        }
    if (removeEmptyFolder(item))
        return true;
    errno = firstError != 0 ? firstError : errno;
    return false;
}

} // namespace velmarin
