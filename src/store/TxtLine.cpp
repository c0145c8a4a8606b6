#include "store/TxtLine.h"

#include <algorithm>
#include <optional>

namespace velmarin {

namespace {

constexpr std::string_view kPageOpening = "<@_";
constexpr std::string_view kErrataOpening = "<^_";
constexpr std::string_view kClosing = "_>";

/// The name that begins at `begin`: at least one character, up to the next closing.
std::optional<std::string_view> nameAt(std::string_view text, std::size_t begin) {
    const std::size_t end = text.find(kClosing, begin + 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    return text.substr(begin, end - begin);
}

} // namespace

TxtLine parseTxtLine(std::string_view line) {
    TxtLine result;
    if (const std::size_t at = line.find(kPageOpening); at != std::string_view::npos)
        result.imageName = nameAt(line, at + kPageOpening.size()).value_or("");
    // What remains before the current place with the markers removed. An opening can begin there and end in `rest`.
    std::string before;
    std::string_view rest = line;
    while (true) {
        std::size_t nameBegins = 0;
        const std::size_t tail = std::min(before.size(), kErrataOpening.size() - 1);
        const std::string seam = before.substr(before.size() - tail) + std::string(rest.substr(0, 2));
        if (const std::size_t across = seam.find(kErrataOpening); across != std::string::npos) {
            nameBegins = across + kErrataOpening.size() - tail;
            before.resize(before.size() - (tail - across));
        } else if (const std::size_t at = rest.find(kErrataOpening); at != std::string_view::npos) {
            nameBegins = at + kErrataOpening.size();
            before += rest.substr(0, at);
        } else {
            break;
        }
        const auto name = nameAt(rest, nameBegins);
        if (!name)
            break;
        result.errata.emplace_back(*name);
        rest.remove_prefix(nameBegins + name->size() + kClosing.size());
    }
    return result;
}

std::string withPage(std::string_view line, std::string_view page) {
    std::string changed(line);
    const std::size_t at = line.find(kPageOpening);
    if (const std::size_t begin = at + kPageOpening.size(); at != std::string_view::npos) {
        if (const auto name = nameAt(line, begin))
            return changed.replace(begin, name->size(), page);
    }
    return std::string(kPageOpening).append(page).append(kClosing) + changed;
}

} // namespace velmarin
