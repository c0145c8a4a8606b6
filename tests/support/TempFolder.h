#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmarin::test {

/// A folder of its own for one test, removed with all it holds when the object dies.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes `bytes` as they are to `name` (which may hold folders; they are made), and returns the whole path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes) const;

    /// The bytes of `name`. A missing file fails the test that asks.
    std::string read(const std::filesystem::path& name) const;

  private:
    std::filesystem::path path_;
};

} // namespace velmarin::test
