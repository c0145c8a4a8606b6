#pragma once

#include "cli/DictionaryCheck.h"
#include "files/FolderListing.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velmarin {

/// A picture and the line that first names it.
struct NamedPicture {
    FolderItem file;
    std::filesystem::path namedIn;
    std::uint64_t line = 0;
    std::string name;
};

/// The names that the lines of one file give to pictures of one folder. The folder is listed once, and each name is
/// looked for once.
class PictureNames {
  public:
    explicit PictureNames(std::filesystem::path namedIn) : namedIn_(std::move(namedIn)) {}

    void add(std::string_view name, std::uint64_t line);

    /// The distinct names in the order of their first lines.
    const std::vector<std::string>& names() const { return names_; }
    std::uint64_t firstLine(const std::string& name) const { return mentions_.at(name).firstLine; }
    /// "; 3 more lines name it", or nothing.
    std::string furtherLines(const std::string& name) const;

    /// The pictures that are there. Of the others a finding is noted.
    std::vector<NamedPicture> look(const FolderListing& folder, std::vector<Finding>& findings) const;

  private:
    struct Mention {
        std::uint64_t firstLine = 0;
        std::uint64_t lines = 0;
    };
    std::filesystem::path namedIn_;
    std::vector<std::string> names_;
    std::unordered_map<std::string, Mention> mentions_;
};

/// Decodes each picture once, on all processors, and notes those that cannot be shown whole.
void decodeAll(const std::vector<NamedPicture>& pictures, std::vector<Finding>& findings);

} // namespace velmarin
