#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// One line of a dictd index: where the article of a headword stands in the text.
struct DictdEntry {
    std::string headword;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
};

/// A dictionary in the format of the dictd server, read whole: NAME.index (headword, TAB, offset, TAB, length; the two
/// numbers in base 64 with the digits A-Z a-z 0-9 + /, most significant first) and NAME.dict.dz, which is an ordinary
/// gzip file, or NAME.dict.
class DictdReader {
  public:
    /// Entries that describe the database itself ("00-database-info") are left out.
    /// Throws std::runtime_error with the file's name, and the line where there is one, for a missing file, a line that
    /// is none of an index, an entry that lies outside the text, and a text of more than 256 MiB.
    DictdReader(const std::filesystem::path& folder, const std::string& name);

    const std::vector<DictdEntry>& entries() const { return entries_; }
    std::string_view text(const DictdEntry& entry) const;

    /// The texts of all articles, each once, in the order in which they stand.
    std::vector<std::string_view> articles() const;

  private:
    std::vector<DictdEntry> entries_;
    std::string text_;
};

} // namespace velmarin
