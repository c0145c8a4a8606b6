#pragma once

#include "store/Group.h"

#include <memory>
#include <string>

namespace velmarin {

/// The group that one main window shows.
struct GroupModel {
    /// The group's dictionaries in display order; the index is the tab's number.
    DictionaryList pDictionaryItem;
    /// Nil before the first pick and after the window has been closed.
    FolderItem pDictionaryGroupFolder;
    std::string pDicGroupName;
    /// False if the group has preferences that could not be read; they are then not written either.
    bool preferencesRead = true;
    /// Set by a group of kFewestForList dictionaries or more, and never cleared.
    bool pListMode = false;
    /// True while the window restores its state: control events then write no preferences.
    bool pProtect = false;

    /// Drops all that belongs to the present group. List mode remains.
    void leave();
    bool hasDictionary(int index) const { return index >= 0 && index < dictionaryCount(); }
    int dictionaryCount() const { return static_cast<int>(pDictionaryItem.size()); }
    /// The dictionary at `index`, kept alive while it is used; raises NilObjectException outside the list.
    std::shared_ptr<DictionaryItem> dictionary(int index) const;
};

/// From this many dictionaries on a group is shown as a list and not as tabs.
inline constexpr int kFewestForList = 22;

} // namespace velmarin
