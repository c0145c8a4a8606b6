#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// Properties that all windows share. The application object owns them and passes each to the parts that need it.
struct ThisAppliModule {
    FolderItem pDictionaryFolder;
    FolderItem pThis_PreferencesFolder;
    /// The lines of the last save in the order editor. If there are any, every write of a group's preferences writes
    /// these.
    std::vector<std::string> pNewDicPref;
    /// The tool tip of every group pop-up.
    std::string pSelectedDicTag;

    /// Makes the folder `Preferences` beside the program if it is missing.
    void mThisMod_OpenThisModule(const FolderItem& applicationFolder) {
        pThis_PreferencesFolder = applicationFolder.Child("Preferences");
        pThis_PreferencesFolder.CreateAsFolder();
    }
};

} // namespace velmarin
