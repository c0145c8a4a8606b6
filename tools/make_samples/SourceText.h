#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The text of a dictionary in the dictd format, read whole: NAME.index and NAME.dict.dz or NAME.dict.
class SourceText {
  public:
    /// Throws std::runtime_error with the file's name for a file that is missing or damaged.
    SourceText(const std::filesystem::path& folder, const std::string& name);

    /// The articles, each once, in the order of the text; not those in which the dictionary describes itself, and none
    /// that abuse a people.
    const std::vector<std::string_view>& articles() const { return articles_; }

  private:
    std::string text_;
    std::vector<std::string_view> articles_;
};

} // namespace velmarin
