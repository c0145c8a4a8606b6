#include "store/BackupFolder.h"

#include "files/SystemCalls.h"
#include "store/FileNames.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

#include <cerrno>
#include <climits>
#include <utility>

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

std::optional<std::filesystem::path> makeBackupFolder(const std::string& dictionary, std::size_t number,
                                                      const FolderItem& backups) {
    constexpr int kAttempts = 100;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::filesystem::path folder = backups.path() / backupFolderName(dictionary, number, backups);
        if (makeFolder(folder))
            return flushFolder(backups.path()) ? std::optional(std::move(folder)) : std::nullopt;
        if (errno != EEXIST)
            break;
    }
    return std::nullopt;
}

} // namespace velmarin
