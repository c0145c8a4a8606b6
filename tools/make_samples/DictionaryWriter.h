#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "make_samples/Book.h"

namespace velmarin {

/// What one line of the index and its line of the text say.
struct IndexLine {
    std::string key;
    std::string note;                    ///< after the delimiter; may be empty
    std::string page;                    ///< a file in mImg
    std::vector<std::string> extraPages; ///< files in mPimg
};

/// A page of the list, in page order. The caption is what is printed on it as its number.
struct ListedPage {
    std::string name;
    std::string caption;
};

/// Puts the lines in the order of their search words. Of lines with equal search words only the first stays, unless the
/// others name the same page; whichever of them a search shows, it has the extra pages of all. A closing line that
/// sorts after everything is added, with the page of the last.
std::vector<IndexLine> indexLines(std::vector<IndexLine> lines, const IndexOrder& order);

/// Writes the members of a dictionary other than its pictures into `folder`, which exists. `lines` come from
/// indexLines. Throws std::runtime_error naming a file that cannot be written.
void writeDictionary(const std::filesystem::path& folder, const std::vector<IndexLine>& lines,
                     const std::vector<ListedPage>& pages, const Book& book);

/// Writes a file whole, or throws std::runtime_error naming it.
void writeFile(const std::filesystem::path& path, const std::string& bytes);

} // namespace velmarin
