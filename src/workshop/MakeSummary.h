#pragma once

#include "book/BookBuild.h"

#include <string>

namespace velmarin {

/// What will be written, in words, a line for each fact: how many pages and lines, which pages are doubtful or have no
/// headword, and which headwords break the order, with their neighbors.
std::string summaryOf(const BookPlan& plan);

/// Why a dictionary of that name cannot be made in a group, in words; empty if it can.
std::string whyNotMade(const FolderItem& group, const std::string& name);

} // namespace velmarin
