#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

/// The folder of the installed dictionaries in the dictd format, each an `*.index` with its `*.dict.dz` or `*.dict`.
inline constexpr std::string_view kDictdFolder = "/usr/share/dictd";

/// The dictionary service: the installed dictionaries, read in place and without a server. Nothing is cached between
/// look-ups, so a dictionary answers as soon as it is installed.
class DictionaryService {
  public:
    explicit DictionaryService(FolderItem folder = FolderItem(std::filesystem::path(kDictdFolder)))
        : folder_(std::move(folder)) {}

    /// The definitions of the `length` characters of `text` that begin at the character `start` (from 0), from all
    /// dictionaries that have them, in the order of their file names, each under the dictionary's name. Empty if none
    /// has them. Lines and blanks are kept. The answer is valid UTF-8; damaged parts of a dictionary are left out,
    /// and one that the disk cannot read has the reason as its answer.
    /// `yield` is called after each dictionary and may let events run.
    std::string TextDefinition(std::string_view text, int start, int length,
                               const std::function<void()>& yield = {}) const;

    static constexpr std::size_t kLongestAnswer = std::size_t{1} << 23;

  private:
    FolderItem folder_;
};

} // namespace velmarin
