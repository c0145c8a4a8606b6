#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace velmarin::test {

/// The content of a folder: relative path to "folder", "file " and its bytes, "link " and its target, or "other".
using Tree = std::map<std::string, std::string>;

/// The tree below `top`, which has the path "." itself. Empty if there is no `top`.
Tree treeOf(const std::filesystem::path& top);

/// The same without folders as one line, such as "FW=new mImg/p1.tif=page link->ind".
std::string filesOf(const std::filesystem::path& top);

/// The paths of the hidden leftovers at any depth below `top`.
std::vector<std::string> leftoversIn(const std::filesystem::path& top);

} // namespace velmarin::test
