#include "Trees.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include <sys/stat.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

std::string described(const fs::path& path) {
    const fs::file_status status = fs::symlink_status(path);
    if (fs::is_directory(status))
        return "folder";
    if (fs::is_symlink(status))
        return "link " + fs::read_symlink(path).string();
    if (!fs::is_regular_file(status))
        return "other";
    std::ifstream in(path, std::ios::binary);
    return "file " + std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace

Tree treeOf(const fs::path& top) {
    Tree tree;
    if (!fs::exists(fs::symlink_status(top)))
        return tree;
    tree["."] = described(top);
    if (!fs::is_directory(fs::symlink_status(top)))
        return tree;
    for (const auto& entry : fs::recursive_directory_iterator(top))
        tree[entry.path().lexically_relative(top)] = described(entry.path());
    return tree;
}

std::vector<std::string> leftoversIn(const fs::path& top) {
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        if (entry.path().filename().native().starts_with(".velmarin-"))
            found.push_back(entry.path().lexically_relative(top));
    }
    return found;
}

void makeFifo(const fs::path& path) {
    if (::mkfifo(path.c_str(), 0600) != 0)
        throw std::runtime_error("could not make the FIFO " + path.string());
}

void makeLink(const fs::path& link, const fs::path& leadsTo) {
    fs::create_directories(link.parent_path());
    fs::create_symlink(leadsTo, link);
}

} // namespace velmarin::test
