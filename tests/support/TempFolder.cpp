#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <sys/stat.h>

namespace velmarin::test {

namespace fs = std::filesystem;

void writeFile(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush())
        throw std::runtime_error("could not write " + file.string());
}

std::string readFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("could not read " + file.string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TempFolder::TempFolder() {
    std::string pattern = (fs::temp_directory_path() / "velmarin-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary folder could be made");
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

fs::path TempFolder::write(const fs::path& name, std::string_view bytes) const {
    writeFile(at(name), bytes);
    return at(name);
}

void TempFolder::fifo(const fs::path& name) const {
    if (::mkfifo(at(name).c_str(), 0600) != 0)
        throw std::runtime_error("could not make the FIFO " + name.string());
}

void TempFolder::link(const fs::path& name, const fs::path& target) const {
    fs::create_directories(at(name).parent_path());
    fs::create_symlink(target, at(name));
}

} // namespace velmarin::test
