#include "support/Tree.h"

#include "support/TempFolder.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

std::string described(const fs::path& path) {
    const fs::file_status status = fs::symlink_status(path);
    if (fs::is_directory(status))
        return "folder";
    if (fs::is_symlink(status))
        return "link " + fs::read_symlink(path).string();
    return fs::is_regular_file(status) ? "file " + readFile(path) : "other";
}

} // namespace

Tree treeOf(const fs::path& top) {
    Tree tree;
    if (!fs::exists(fs::symlink_status(top)))
        return tree;
    tree["."] = described(top);
    if (tree["."] != "folder")
        return tree;
    for (const auto& entry : fs::recursive_directory_iterator(top))
        tree[entry.path().lexically_relative(top)] = described(entry.path());
    return tree;
}

std::string filesOf(const fs::path& top) {
    std::string line;
    for (const auto& [path, what] : treeOf(top)) {
        const std::size_t blank = what.find(' ');
        if (blank != std::string::npos)
            line += (line.empty() ? "" : " ") + path + (what[0] == 'l' ? "->" : "=") + what.substr(blank + 1);
    }
    return line;
}

std::vector<std::string> leftoversIn(const fs::path& top) {
    std::vector<std::string> found;
    for (const auto& [path, what] : treeOf(top)) {
        if (fs::path(path).filename().native().starts_with(".velmarin-"))
            found.push_back(path);
    }
    return found;
}

} // namespace velmarin::test
