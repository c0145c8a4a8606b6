#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// What all windows share, beside the application object's own lists.
struct ThisAppliModule {
    FolderItem pDictionaryFolder;
    FolderItem pThis_PreferencesFolder;
    /// The lines of the last save in the order editor; while there are any, every write of a group's preferences
    /// writes these.
    std::vector<std::string> pNewDicPref;
    /// The help tag of every group pop-up.
    std::string pSelectedDicTag;
    /// While the page image window is open, which a change of group closes.
    bool pPageImageShown = false;

    /// Makes the folder `Preferences` beside the program where there is none yet.
    void mThisMod_OpenThisModule(const FolderItem& applicationFolder) {
        pThis_PreferencesFolder = applicationFolder.Child("Preferences");
        pThis_PreferencesFolder.CreateAsFolder();
    }
};

} // namespace velmarin
