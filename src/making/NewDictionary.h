#pragma once

#include "files/Result.h"
#include "files/Work.h"
#include "making/About.h"
#include "making/BookTable.h"
#include "making/IndexPlan.h"
#include "text/SearchWord.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velmarin {

/// What a new dictionary is made of.
struct NewDictionary {
    std::vector<BookPage> pages = {}; ///< in the order of the book
    FolderItem pageFolder = {};       ///< holds their pictures
    FolderItem extraPageFolder = {};  ///< holds the pictures that the lines name as errata; nil for none
    std::vector<IndexLine> lines = {};
    IndexOrder order = {};
    bool independent = false;
    About about = {};
};

/// Why a dictionary cannot get a name.
inline constexpr const char* kNameIsTaken = "an item of that name is already there";

/// Writes a dictionary into a group, as docs/dictionary-format.md describes it, with a closing line. It appears,
/// flushed to the disk, only when all of it is written, and never replaces anything. If it fails, nothing of it is
/// left. A group that does not exist is made with it.
///
/// Fails for a page whose name cannot be written in `txt`, and for a book without pages or lines. Waits while another
/// run works on the folder that holds the group.
Result writeNewDictionary(const NewDictionary& book, const FolderItem& group, const std::string& name,
                          const Progress& progress = {});

/// Writes all of a dictionary but its pictures into `folder`, flushed, for a maker that has put the pictures into its
/// `mImg` and `mPimg` itself. A failure names the member in `finalFolder`, the name that `folder` is to get.
Result writeTextMembers(const NewDictionary& book, const std::filesystem::path& folder,
                        const std::filesystem::path& finalFolder, const Work& work = Work());

} // namespace velmarin
