#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velmarin::test {

namespace fs = std::filesystem;

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
    const fs::path whole = path_ / name;
    fs::create_directories(whole.parent_path());
    std::ofstream out(whole, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush())
        throw std::runtime_error("could not write " + whole.string());
    return whole;
}

std::string TempFolder::read(const fs::path& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    if (!in)
        throw std::runtime_error("could not read " + (path_ / name).string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace velmarin::test
