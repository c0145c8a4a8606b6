#include "store/FileNames.h"

#include "text/NumberText.h"

#include <algorithm>

namespace velmarin {

namespace {

/// The first `count` characters of a UTF-8 text; a byte that belongs to no character counts as one.
std::string leftCharacters(std::string_view text, std::ptrdiff_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) {
        ++at;
        while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
            ++at;
    }
    return std::string(text.substr(0, at));
}

std::string leftBytes(std::string_view text, std::ptrdiff_t count) {
    return std::string(text.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0))));
}

} // namespace

std::string mFiMod_GetExtensionFromFileName(std::string_view name) {
    const std::size_t point = name.rfind('.');
    return point == std::string_view::npos ? std::string() : std::string(name.substr(point + 1));
}

std::string mFiMod_RemoveExtesionFromFileName(std::string_view name) {
    return std::string(name.substr(0, name.rfind('.')));
}

std::string mFiMod_GetUniqueFileName(std::string_view name, const FolderItem& folder) {
    constexpr std::ptrdiff_t kMostBytes = 31; // what a name could have on the older volumes
    const auto free = [&](const std::string& candidate) { return !folder.Child(candidate).occupied(); };
    if (free(std::string(name)))
        return std::string(name);

    std::string ext = mFiMod_GetExtensionFromFileName(name);
    if (!ext.empty())
        ext.insert(0, 1, '.');
    std::string base = mFiMod_RemoveExtesionFromFileName(name);
    const std::ptrdiff_t room = kMostBytes - std::ssize(ext);
    if (std::ssize(base) > room)
        base = leftCharacters(base, room);
    if (free(base + ext))
        return base + ext;

    for (int n = 1;; ++n) {
        const std::string digits = Str(n);
        std::string candidate = base + "_" + digits + ext;
        // The candidate has its extension already, which `room` has taken off: the cut is asked for sooner than needed.
        if (std::ssize(candidate) > room)
            candidate = leftBytes(base, room - std::ssize(digits) - 1) + "_" + digits + ext;
        if (free(candidate))
            return candidate;
    }
}

} // namespace velmarin
