#include "workshop/WorkshopPlacement.h"

#include "files/AtomicFile.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

#include <cstdint>
#include <string>

namespace velmarin {

namespace {

constexpr const char* kFile = "WorkshopWindow";
constexpr std::uint64_t kLargest = 4096;

} // namespace

std::optional<WorkshopPlacement> readWorkshopPlacement(const FolderItem& preferencesFolder) {
    const auto text = readWholeFile(preferencesFolder.Child(kFile), kLargest);
    if (!text || text->empty())
        return std::nullopt;
    const std::string_view line = LineReader(*text).ReadLine();
    const auto number = [&](std::size_t n) { return toInt32(CDbl(NthField(line, "\t", n))); };
    return WorkshopPlacement{
        .window = {number(1), number(2), number(3), number(4)}, .listWidth = number(5), .maximized = number(6) != 0};
}

Result writeWorkshopPlacement(const FolderItem& preferencesFolder, const WorkshopPlacement& placement) {
    const WindowPlacement& window = placement.window;
    std::string line;
    for (const int number : {window.left, window.top, window.width, window.height, placement.listWidth,
                             static_cast<int>(placement.maximized)})
        line += Str(number) + "\t";
    return writeFileAtomically(preferencesFolder.Child(kFile).path(), line + "\n", Durability::RenamedOnly);
}

} // namespace velmarin
