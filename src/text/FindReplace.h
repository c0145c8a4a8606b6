#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmarin {

/// The position, in bytes from 1, of the first `find` in `text` at or after `start`, ignoring case; 0 if there is none
/// or `find` is empty. It compares whole characters: a lone continuation byte is not found inside a character.
std::size_t InStr(std::size_t start, std::string_view text, std::string_view find);

/// Replaces every `find` from left to right; does not search in what it inserted. ReplaceAll ignores case, ReplaceAllB
/// compares bytes. An empty `find` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);
std::string ReplaceAllB(std::string_view text, std::string_view find, std::string_view replacement);

} // namespace velmarin
