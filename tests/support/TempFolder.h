#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmarin::test {

/// Writes `bytes` unchanged. Missing folders are created.
void writeFile(const std::filesystem::path& file, std::string_view bytes);

/// The bytes of a file. Throws if it cannot be read.
std::string readFile(const std::filesystem::path& file);

/// A new folder, removed with all its content when the object is destroyed. Names are relative to it.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path at(const std::filesystem::path& name) const { return path_ / name; }

    /// Writes a file and returns its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes) const;
    void fifo(const std::filesystem::path& name) const;
    /// A regular file of which no byte can be read: EIO.
    void unreadable(const std::filesystem::path& name) const { link(name, "/proc/self/mem"); }
    void link(const std::filesystem::path& name, const std::filesystem::path& target) const;

    std::string read(const std::filesystem::path& name) const { return readFile(at(name)); }

  private:
    std::filesystem::path path_;
};

} // namespace velmarin::test
