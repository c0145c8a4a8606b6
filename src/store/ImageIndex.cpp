#include "store/ImageIndex.h"

#include "files/AtomicFile.h"
#include "store/FileNames.h"
#include "store/PictureFormats.h"
#include "text/NumberText.h"

#include <algorithm>

namespace velmarin {

namespace {

bool isPictureName(std::string_view name) {
    std::string extension = mFiMod_GetExtensionFromFileName(name);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return pPictureExtensions.contains(extension);
}

} // namespace

std::vector<std::string> pictureNames(const FolderItem& folder) {
    std::vector<std::string> pictures;
    for (const FolderItem& item : folder.items()) {
        const std::string name = item.Name();
        if (isPictureName(name) && item.Visible() && item.regularFile() &&
            name.find_first_of("\r\n") == std::string::npos)
            pictures.push_back(name);
    }
    return pictures;
}

bool mFiMod_MakeImageIndex(FolderItem folder, const std::function<FolderItem()>& askForFolder) {
    if (folder.isNil() && askForFolder)
        folder = askForFolder();
    if (folder.isNil())
        return false;
    const std::vector<std::string> pictures = pictureNames(folder);
    if (pictures.empty())
        return false;
    std::string text = Str(std::ssize(pictures) - 1) + "\n";
    for (const std::string& name : pictures)
        text += name + "\n";
    return static_cast<bool>(writeFileAtomically(folder.Child("ImageIndex").path(), text));
}

} // namespace velmarin
