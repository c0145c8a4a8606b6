#pragma once

#include "cli/Finding.h"
#include "files/FolderListing.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// A picture and the line that names it first.
struct NamedPicture {
    FolderItem file;
    std::filesystem::path namedIn;
    std::uint64_t line = 0;
    std::string name;
};

/// The picture names in the lines of one file. Each name is looked up once in its folder.
class PictureNames {
  public:
    explicit PictureNames(std::filesystem::path namedIn) : namedIn_(std::move(namedIn)) {}

    void add(std::string_view name, std::uint64_t line);

    /// The distinct names, in the order of their first lines.
    const std::vector<std::string>& names() const { return names_; }
    std::uint64_t firstLine(const std::string& name) const { return mentions_.at(name).firstLine; }
    /// "; 3 more lines name it", or empty.
    std::string furtherLines(const std::string& name) const;

    /// The pictures that exist in `folder`. Each missing one is a finding.
    std::vector<NamedPicture> findIn(const FolderListing& folder, Findings& findings) const;

  private:
    struct Mention {
        std::uint64_t firstLine = 0;
        std::uint64_t lines = 0;
    };
    std::filesystem::path namedIn_;
    std::vector<std::string> names_;
    std::unordered_map<std::string, Mention> mentions_;
};

} // namespace velmarin
