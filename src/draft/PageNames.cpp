#include "draft/PageNames.h"

#include "store/FileNames.h"

namespace velmarin {

void PageNames::add(const std::string& name, std::size_t place) {
    byName_.emplace(name, place);
    byStem_.emplace(mFiMod_RemoveExtesionFromFileName(name), place);
}

std::optional<std::size_t> PageNames::placeOf(const std::string& name) const {
    if (const auto found = byName_.find(name); found != byName_.end())
        return found->second;
    const auto renamed = byStem_.find(mFiMod_RemoveExtesionFromFileName(name));
    return renamed == byStem_.end() ? std::nullopt : std::optional(renamed->second);
}

} // namespace velmarin
