#pragma once

#include "files/Result.h"
#include "files/Work.h"
#include "text/SearchWord.h"
#include "workshop/About.h"
#include "workshop/BookTable.h"
#include "workshop/IndexPlan.h"

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

/// Writes a dictionary into a group, as docs/dictionary-format.md describes it, with a closing line. It appears,
/// flushed to the disk, only when all of it is written, and never replaces anything. If it fails, nothing of it is
/// left. A group that does not exist is made with it.
///
/// Fails for a page whose name cannot be written in `txt`, and for a book without pages or lines. Waits while another
/// run works on the folder that holds the group.
Result writeNewDictionary(const NewDictionary& book, const FolderItem& group, const std::string& name,
                          const Progress& progress = {});

} // namespace velmarin
