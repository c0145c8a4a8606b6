#include "shell/PreferenceWriter.h"

#include "text/StringRules.h"

namespace velmarin {

namespace {

std::string groupText(const WindowState& state, bool separately, const ThisAppliModule& module) {
    if (!module.pNewDicPref.empty())
        return Join(module.pNewDicPref, "\n") + "\n";
    GroupPreferences preferences;
    preferences.groupName = state.pDicGroupName;
    preferences.separately = separately;
    for (const auto& item : state.pDictionaryItem)
        preferences.dictionaries.push_back({item->name, item->ImageMode});
    return formatGroupPreferences(preferences);
}

} // namespace

void PreferenceWriter::writeGroup(const WindowState& state, bool separately, const ThisAppliModule& module) {
    if (state.pDictionaryGroupFolder.isNil() || !state.pDictionaryGroupFolder.Exists())
        return;
    const FolderItem file = state.pDictionaryGroupFolder.Child("DictionaryPreferences.txt");
    note(file.path().string(), writeFileAtomically(file.path(), groupText(state, separately, module)));
}

void PreferenceWriter::writePlacement(const WindowPlacement& placement, const ThisAppliModule& module) {
    const std::string path = module.pThis_PreferencesFolder.Child("MainWindow").path().string();
    note(path, writeWindowPlacement(module.pThis_PreferencesFolder, placement));
}

void PreferenceWriter::note(const std::string& path, const WriteResult& result) {
    if (result.ok)
        failing_.erase(path);
    else if (failing_.insert(path).second)
        tell_(result.reason);
}

} // namespace velmarin
