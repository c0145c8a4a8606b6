#include "shell/PreferenceWriter.h"

#include "store/GroupPreferences.h"

#include <algorithm>

namespace velmarin {

void PreferenceWriter::writeGroup(const GroupModel& group, bool separately) {
    const FolderItem& folder = group.pDictionaryGroupFolder;
    if (folder.isNil())
        return;
    const FolderItem file(folder.path() / "DictionaryPreferences.txt");
    if (!group.preferencesRead)
        return note(file.path().string(), Failure{file, "it could not be read, and is not replaced"});
    GroupPreferences preferences;
    preferences.groupName = group.pDicGroupName;
    preferences.separately = separately;
    for (const auto& item : group.pDictionaryItem)
        preferences.dictionaries.push_back({item->name, item->ImageMode});
    note(file.path().string(), writeGroupPreferences(folder, preferences, newDicPref_));
}

std::optional<WindowPlacement> PreferenceWriter::placement() const {
    return unsaved_ ? unsaved_ : readWindowPlacement(preferencesFolder_);
}

void PreferenceWriter::writePlacement(const WindowPlacement& placement) {
    const std::string path = preferencesFolder_.Child("MainWindow").path().string();
    const Result result = writeWindowPlacement(preferencesFolder_, placement);
    unsaved_ = result ? std::nullopt : std::optional(placement);
    note(path, result);
}

void PreferenceWriter::note(const std::string& path, const Result& result) {
    if (result) {
        failing_.erase(path);
        return;
    }
    const std::string& reason = result.failure().reason;
    const bool isNew = std::none_of(failing_.begin(), failing_.end(), [&](const auto& earlier) {
        return earlier.first == path || earlier.second == reason;
    });
    failing_.insert_or_assign(path, reason);
    if (isNew)
        report_(result.failure().message());
}

} // namespace velmarin
