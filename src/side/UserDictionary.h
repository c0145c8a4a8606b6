#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmarin {

inline constexpr std::string_view kTextFileName = "Text.txt";
inline constexpr std::string_view kIndexFileName = "Index.txt";
/// The folder in a group's folder that holds its user dictionaries, or links to them.
inline constexpr std::string_view kUserDictionariesFolder = "UserDictionaries";

/// Where a build says how far it is.
class ProgressPort {
  public:
    virtual ~ProgressPort() = default;
    /// What is being done now; empty at the end.
    virtual void message(std::string_view text) = 0;
    virtual void showBar() = 0;
    virtual void setMaximum(int maximum) = 0;
    /// Shows at once.
    virtual void setValue(int value) = 0;
    /// Called at each line; may let events run.
    virtual void yield() = 0;
};

/// Shows nothing, for builds without a window.
class SilentProgress final : public ProgressPort {
  public:
    void message(std::string_view) override {}
    void showBar() override {}
    void setMaximum(int) override {}
    void setValue(int) override {}
    void yield() override {}
};

struct BuildResult {
    bool ok = true;
    /// In plain words, with the name of the file; empty on success.
    std::string reason;
    /// The reason is that the folder already holds a dictionary.
    bool earlierRefused = false;
    std::int64_t lines = 0;
    /// Lines that are not UTF-8: they are in the dictionary byte for byte.
    std::int64_t linesNotUtf8 = 0;
};

/// The text of a source as a user dictionary shows it: "__NUM__1" to "__NUM__9" become superscripts and any other
/// "__NUM__" a hyphen, whatever the case of the marker. All else, line ends included, stays as it is.
std::string withSuperscripts(std::string_view line);

/// What becomes of the files of an earlier dictionary in the folder.
enum class EarlierPair {
    Refused, ///< nothing is built
    Removed,
    Saved, ///< moved to a new folder in the folder for backups
};

/// Makes `folder`, which has to be there, a user dictionary from the source file: both files are written whole in a
/// hidden folder inside it and put in place together. Until then the earlier pair stays, and where anything fails the
/// folder is as it was; after a kill the next build gives the earlier pair its names back first. A folder for what is
/// saved is made in `backups`, called after the dictionary, "-Oldversion-0" and, where that name is taken, a number.
BuildResult buildUserDictionary(const FolderItem& source, const FolderItem& folder, ProgressPort& progress,
                                EarlierPair earlier, const FolderItem& backups = {});

} // namespace velmarin
