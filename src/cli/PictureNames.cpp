#include "cli/PictureNames.h"

#include "cli/LineCheck.h"

namespace velmarin {

void PictureNames::add(std::string_view name, std::uint64_t line) {
    const auto [mention, isNew] = mentions_.try_emplace(std::string(name), Mention{line, 0});
    if (isNew)
        names_.emplace_back(name);
    ++mention->second.lines;
}

std::string PictureNames::furtherLines(const std::string& name) const {
    const std::uint64_t more = mentions_.at(name).lines - 1;
    if (more == 0)
        return {};
    return more == 1 ? "; one more line names it" : "; " + std::to_string(more) + " more lines name it";
}

std::vector<NamedPicture> PictureNames::findIn(const FolderListing& folder, Findings& findings) const {
    std::vector<NamedPicture> found;
    for (const std::string& name : names_) {
        const std::uint64_t line = firstLine(name);
        const FolderItem file = folder.Child(name);
        if (isMemberName(name) && file.regularFile())
            found.push_back({file, namedIn_, line, name});
        else
            findings.push_back(
                {namedIn_, line,
                 "names " + inQuotes(name) + ", which is not in " + folder.folder().Name() + furtherLines(name)});
    }
    return found;
}

} // namespace velmarin
