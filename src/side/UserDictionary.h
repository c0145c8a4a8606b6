#pragma once

#include "files/FolderItem.h"
#include "side/ProgressPort.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmarin {

/// The folder in a group's folder that holds its user dictionaries, or links to them.
inline constexpr std::string_view kUserDictionariesFolder = "UserDictionaries";

struct BuildResult {
    bool ok = true;
    /// In plain words, with the name of the file; empty on success.
    std::string reason;
    /// True if the reason is that the folder already holds a dictionary.
    bool earlierRefused = false;
    std::int64_t lines = 0;
    /// Lines that are not UTF-8; they are copied byte for byte.
    std::int64_t linesNotUtf8 = 0;
};

/// A line of the source as a user dictionary shows it: "__NUM__1" to "__NUM__9" become superscripts and any other
/// "__NUM__" a hyphen, ignoring the case of the marker. Everything else, line ends included, stays as it is.
std::string withSuperscripts(std::string_view line);

/// What a build does with a dictionary that the folder already holds.
enum class ExistingDictionary {
    Refuse, ///< builds nothing
    Remove,
    BackUp, ///< moves it to a new folder in the folder for backups
};

/// Builds a user dictionary in `folder`, which must exist, from the source file. Both files are written to a hidden
/// folder inside it and put in place together. Until then the earlier pair stays, and if anything fails, the folder is
/// as it was. After a kill the next build first gives the earlier pair its names back. What is saved goes to a folder
/// in `backups` whose name is that of the dictionary, "-Oldversion-" and the first number that is free.
BuildResult buildUserDictionary(const FolderItem& source, const FolderItem& folder, ProgressPort& progress,
                                ExistingDictionary earlier, const FolderItem& backups = {});

} // namespace velmarin
