#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmarin {

/// Whether a file must survive a loss of power, or only be whole (the window placement, rewritten at every move).
enum class Durability { Flushed, RenamedOnly };

struct WriteResult {
    bool ok = true;
    /// In plain words, with the file's name; empty on success.
    std::string reason;
    explicit operator bool() const { return ok; }
};

/// The one writer of every file that the program rewrites: a temporary file beside it, every byte checked, flushed,
/// renamed over the old one, the folder flushed. At any moment the file holds its old bytes or its new ones. A link is
/// followed and stays a link; the permissions of an existing file are kept. On failure the temporary file is gone. A
/// flushed write first clears the leftovers of killed runs from the folder.
WriteResult writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                                Durability durability = Durability::Flushed);

} // namespace velmarin
