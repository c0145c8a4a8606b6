#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// Two file names have the same folded form if they are equal when case and Unicode composition are ignored.
std::string foldedFileName(std::string_view name);

/// `text` in Unicode normalisation form C (composed). Bytes that are not UTF-8 stay unchanged.
std::string composedForm(std::string_view text);

} // namespace velmarin
