#pragma once

#include "cli/Finding.h"
#include "files/FolderItem.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// `text` in double quotes, as findings show words and names.
std::string inQuotes(std::string_view text);

/// Calls `each` with each line of a text file and its number, from 1. Lines that are not UTF-8, or too long to be read
/// whole, are findings. Returns the number of lines, or nullopt, with a finding, if the file cannot be read.
std::optional<std::uint64_t> checkLines(const FolderItem& file, Findings& findings,
                                        const std::function<void(const std::string& line, std::uint64_t number)>& each);

} // namespace velmarin
