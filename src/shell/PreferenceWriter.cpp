#include "shell/PreferenceWriter.h"

namespace velmarin {

void PreferenceWriter::writeGroup(const WindowState& state, bool separately, const ThisAppliModule& module) {
    const FolderItem& group = state.pDictionaryGroupFolder;
    if (group.isNil())
        return;
    GroupPreferences preferences;
    preferences.groupName = state.pDicGroupName;
    preferences.separately = separately;
    for (const auto& item : state.pDictionaryItem)
        preferences.dictionaries.push_back({item->name, item->ImageMode});
    note((group.path() / "DictionaryPreferences.txt").string(),
         writeGroupPreferences(group, preferences, module.pNewDicPref));
}

std::optional<WindowPlacement> PreferenceWriter::placement(const ThisAppliModule& module) const {
    return unsaved_ ? unsaved_ : readWindowPlacement(module.pThis_PreferencesFolder);
}

void PreferenceWriter::writePlacement(const WindowPlacement& placement, const ThisAppliModule& module) {
    const std::string path = module.pThis_PreferencesFolder.Child("MainWindow").path().string();
    const WriteResult result = writeWindowPlacement(module.pThis_PreferencesFolder, placement);
    unsaved_ = result ? std::nullopt : std::optional(placement);
    note(path, result);
}

void PreferenceWriter::note(const std::string& path, const WriteResult& result) {
    if (result.ok)
        failing_.erase(path);
    else if (failing_.insert(path).second)
        tell_(result.reason);
}

} // namespace velmarin
