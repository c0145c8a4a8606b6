#include "shell/PreferenceWriter.h"

#include "store/GroupPreferences.h"

#include <algorithm>

namespace velmarin {

void PreferenceWriter::writeGroup(const GroupModel& group, bool separately, const ThisAppliModule& module) {
    const FolderItem& folder = group.pDictionaryGroupFolder;
    if (folder.isNil())
        return;
    GroupPreferences preferences;
    preferences.groupName = group.pDicGroupName;
    preferences.separately = separately;
    for (const auto& item : group.pDictionaryItem)
        preferences.dictionaries.push_back({item->name, item->ImageMode});
    note((folder.path() / "DictionaryPreferences.txt").string(),
         writeGroupPreferences(folder, preferences, module.pNewDicPref));
}

std::optional<WindowPlacement> PreferenceWriter::placement(const ThisAppliModule& module) const {
    return unsaved_ ? unsaved_ : readWindowPlacement(module.pThis_PreferencesFolder);
}

void PreferenceWriter::writePlacement(const WindowPlacement& placement, const ThisAppliModule& module) {
    const std::string path = module.pThis_PreferencesFolder.Child("MainWindow").path().string();
    const Result result = writeWindowPlacement(module.pThis_PreferencesFolder, placement);
    unsaved_ = result ? std::nullopt : std::optional(placement);
    note(path, result);
}

void PreferenceWriter::note(const std::string& path, const Result& result) {
    if (result) {
        failing_.erase(path);
        return;
    }
    const std::string& reason = result.failure().reason;
    const bool isNew = std::none_of(failing_.begin(), failing_.end(),
                                    [&](const auto& told) { return told.first == path || told.second == reason; });
    failing_.insert_or_assign(path, reason);
    if (isNew)
        tell_(result.failure().message());
}

} // namespace velmarin
