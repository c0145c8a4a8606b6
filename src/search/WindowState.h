#pragma once

#include "store/Group.h"
#include "store/HitItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// What one main window holds of its group, shared by the parts that it is made of.
struct WindowState {
    /// The group's dictionaries in display order; the index is the tab's number.
    DictionaryList pDictionaryItem;
    /// The hits of the last list-mode search, one per dictionary searched.
    std::vector<HitItem> pHiteItems;
    /// Nil before the first pick and after the window has been closed.
    FolderItem pDictionaryGroupFolder;
    std::string pDicGroupName;
    /// Set once by a group of kFewestForList dictionaries or more, never cleared.
    bool pListMode = false;
    /// In list mode, the dictionary now shown.
    int pListMode_CurrentDicNum = 0;
    /// While the window restores its state, control events write nothing.
    bool pProtect = false;

    /// Drops all that belongs to the present group; list mode stays.
    void leaveGroup();
    /// The dictionary that a tab shows: its own number, in list mode the one that was chosen.
    int shownDictionary(int tabIndex) const { return pListMode ? pListMode_CurrentDicNum : tabIndex; }
    bool hasDictionary(int index) const { return index >= 0 && index < static_cast<int>(pDictionaryItem.size()); }
    /// The dictionary at `index`, held; raises NilObjectException outside the list.
    std::shared_ptr<DictionaryItem> dictionary(int index) const;
};

/// Where a window's named places stand at its design size, in pixels from its top left.
namespace design {
inline constexpr int kWindowWidth = 838;
inline constexpr int kWindowHeight = 809;
inline constexpr int kTabPanelLeft = 11;
inline constexpr int kTabPanelTop = 37;
inline constexpr int kTabPanelWidth = 808;
inline constexpr int kTabPanelHeight = 765;
} // namespace design

} // namespace velmarin
