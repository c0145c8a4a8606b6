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
class BuildProgress {
  public:
    virtual ~BuildProgress() = default;
    /// What is being done now; empty at the end.
    virtual void message(std::string_view text) = 0;
    virtual void showBar() = 0;
    virtual void setMaximum(int maximum) = 0;
    /// Shows at once.
    virtual void setValue(int value) = 0;
    /// Called at each line; may let events run.
    virtual void yield() = 0;
};

struct BuildResult {
    bool ok = true;
    /// In plain words, with the name of the file: empty where all went well.
    std::string reason;
    std::int64_t lines = 0;
    /// Lines that are no UTF-8: they are in the dictionary byte for byte.
    std::int64_t linesNotUtf8 = 0;
};

/// The text of a source as a user dictionary shows it: "__NUM__1" to "__NUM__9" become superscripts and any other
/// "__NUM__" a hyphen, whatever the case of the marker. All else, line ends included, stays as it is.
std::string withSuperscripts(std::string_view line);

/// Makes `folder` a user dictionary from the source file: both files are written whole beside the folder's own and put
/// in place together, in place of those of an earlier dictionary. Where anything fails the folder is as it was.
/// The folder has to be there.
BuildResult buildUserDictionary(const FolderItem& source, const FolderItem& folder, BuildProgress& progress);

} // namespace velmarin
