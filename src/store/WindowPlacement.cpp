#include "store/WindowPlacement.h"

#include "files/AtomicFile.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmarin {

namespace {

constexpr std::uint64_t kLargestPlacement = std::uint64_t{1} << 16;

} // namespace

std::optional<WindowPlacement> readWindowPlacement(const FolderItem& preferencesFolder, const char* file) {
    const auto text = readWholeFile(preferencesFolder.Child(file), kLargestPlacement);
    if (!text || text->empty())
        return std::nullopt;
    const std::string_view line = LineReader(*text).ReadLine();
    const auto number = [&](std::size_t n) { return toInt32(CDbl(NthField(line, "\t", n))); };
    return WindowPlacement{.left = number(1), .top = number(2), .width = number(3), .height = number(4)};
}

Result writeWindowPlacement(const FolderItem& preferencesFolder, const WindowPlacement& placement, const char* file) {
    std::string line;
    for (const int number : {placement.left, placement.top, placement.width, placement.height})
        line += Str(number) + "\t";
    return writeFileAtomically(preferencesFolder.Child(file).path(), line + "\n", Durability::RenamedOnly);
}

} // namespace velmarin
