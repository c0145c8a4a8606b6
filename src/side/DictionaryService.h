#pragma once

#include "files/FolderItem.h"

#include <functional>
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

    /// The definitions of a stretch of `text`, which starts at the character `start` (from 0) and has `length`
    /// characters, from all dictionaries that know it, in the order of their file names, each under its own name. Empty
    /// if none does. Lines and blanks are those of the dictionary. Valid UTF-8; what cannot be read in a damaged
    /// dictionary is left out. `yield` is called after each dictionary and may let events run.
    std::string TextDefinition(std::string_view text, int start, int length,
                               const std::function<void()>& yield = {}) const;

    static constexpr std::size_t kLongestAnswer = std::size_t{1} << 23;

  private:
    FolderItem folder_;
};

} // namespace velmarin
