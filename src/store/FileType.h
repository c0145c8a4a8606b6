#pragma once

#include <string>
#include <vector>

namespace velmarin {

/// A kind of file, as dialogs filter on it.
struct FileType {
    std::string name;
    /// With their dots.
    std::vector<std::string> extensions;
};

/// Plain text.
inline const FileType pText{"text/plain",
                            {".asc", ".ascii", ".bas", ".c", ".class", ".cp", ".cpp", ".h", ".hp", ".hpp", ".i3",
                             ".java", ".m2", ".m3", ".mak", ".text", ".txt"}};

} // namespace velmarin
