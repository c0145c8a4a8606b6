#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace velmarin::test {

/// A folder by what is in it: relative path to "folder", "file " and its bytes, "link " and where it leads, or "other".
using Tree = std::map<std::string, std::string>;

/// Nothing where `top` is not there. The top itself has the path ".".
Tree treeOf(const std::filesystem::path& top);

/// The paths of the hidden leftovers at any depth below `top`.
std::vector<std::string> leftoversIn(const std::filesystem::path& top);

void makeFifo(const std::filesystem::path& path);
void makeLink(const std::filesystem::path& link, const std::filesystem::path& leadsTo);

} // namespace velmarin::test
