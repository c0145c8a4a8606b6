#include "files/FolderListing.h"

#include "text/UnicodeForms.h"

namespace velmarin {

FolderListing::FolderListing(FolderItem folder) : folder_(std::move(folder)) {
    auto names = listNames(folder_.path());
    if (!names)
        return;
    listed_ = true;
    names_ = std::move(*names);
    for (const std::string& name : names_) {
        exact_.insert(name);
        byFoldedName_.emplace(foldedFileName(name), name);
    }
}

FolderItem FolderListing::Child(std::string_view name) const {
    if (!listed_ || !isMemberName(name))
        return folder_.Child(name);
    if (!exact_.contains(std::string(name))) {
        if (const auto found = byFoldedName_.find(foldedFileName(name)); found != byFoldedName_.end())
            return FolderItem(folder_.path() / found->second);
    }
    return FolderItem(folder_.path() / name);
}

} // namespace velmarin
