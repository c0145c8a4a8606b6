#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

/// What a hidden item is for, as its name says, ".velmarin-<process>-<number>" and the ending:
enum class TemporaryKind {
    Staged,   ///< ".tmp": new and not whole yet, or old and about to be removed
    Swap,     ///< ".swap": a folder whose new members are changing places with old ones
    Replaced, ///< ".old": a folder of replaced members on their way to a backup
};

/// A name that is new in this run.
std::string newTemporaryName();
/// A name of that kind with the numbers of `name`.
std::string temporaryNameAs(TemporaryKind kind, std::string_view name);

/// nullopt if the name is none of these.
std::optional<TemporaryKind> temporaryKind(std::string_view name);
bool isTemporaryName(std::string_view name);

} // namespace velmarin
