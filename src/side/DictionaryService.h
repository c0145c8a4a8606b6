#pragma once

#include "files/FolderItem.h"

#include <string>
#include <string_view>

namespace velmarin {

/// Where the machine's dictionaries in the dictd format lie: each an `*.index` with its `*.dict.dz` or `*.dict`.
inline constexpr std::string_view kDictdFolder = "/usr/share/dictd";

/// The dictionary service of this machine: its installed dictionaries, read in place and without a server. Nothing is
/// kept between questions, so that what is installed meanwhile answers at once.
class DictionaryService {
  public:
    explicit DictionaryService(FolderItem folder = FolderItem(std::filesystem::path(kDictdFolder)))
        : folder_(std::move(folder)) {}

    /// What the dictionaries say of a stretch of `text`, which starts at the character `start` (from 0) and has
    /// `length` characters: all that know it, in the order of their file names, each under its own name. Empty where
    /// none does. Valid UTF-8; what a damaged dictionary cannot give is left out.
    std::string TextDefinition(std::string_view text, int start, int length) const;

    static constexpr std::size_t kLongestAnswer = std::size_t{1} << 23;

  private:
    FolderItem folder_;
};

} // namespace velmarin
