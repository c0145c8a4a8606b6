#include "store/BackupFolder.h"

#include "store/FileNames.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

#include <climits>

namespace velmarin {

namespace {

/// At most `most` bytes of `text`, and no part of a character.
std::string startOf(const std::string& text, std::size_t most) {
    std::size_t end = 0;
    for (std::size_t next = 0; next < text.size() && next <= most; next += decodeUtf8(text, next).length)
        end = next;
    return text.size() <= most ? text : text.substr(0, end);
}

} // namespace

std::string backupFolderName(const std::string& dictionary, std::size_t number, const FolderItem& backups) {
    constexpr std::size_t kAddedToBeUnique = 8; // "_" and digits
    const std::string end = "-Oldversion-" + Str(static_cast<std::int64_t>(number));
    const auto uniqueName = [&](std::size_t most) {
        return mFiMod_GetUniqueFileName(startOf(dictionary, most - end.size()) + end, backups);
    };
    std::string name = uniqueName(NAME_MAX);
    return name.size() <= NAME_MAX ? name : uniqueName(NAME_MAX - kAddedToBeUnique);
}

} // namespace velmarin
