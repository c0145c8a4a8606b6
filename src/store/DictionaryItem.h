#pragma once

#include "files/FolderItem.h"
#include "files/IndexedTextFile.h"
#include "store/HeadwordIndex.h"
#include "store/PageList.h"
#include "text/SearchWord.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// How pages fit the canvas. ImageMode is kept as a plain number, since files may hold any; these are the ones with a
/// menu row, and the one that list mode sets.
enum : int { kAdjustByHeight = 0, kOriginalSize = 1, kAdjustByWidth = 2, kListModeImageMode = 3 };

/// One loaded dictionary. Owned by `pDictionaryItem` of one main window, and shared by code that works with it.
struct DictionaryItem {
    int TabNum = 0;
    FolderItem DictionaryFolderitem;
    std::string name;
    FolderItem ImageFolder;
    FolderItem TxtFi;
    HeadwordIndex IND;
    FolderItem PageImageFi;
    int ImageMode = kAdjustByHeight;
    ImageDictionaryMap ImageDictionary;
    std::vector<std::string> ImageNameArray;
    /// SpanishMode, IJUVMode and FormatFom.
    IndexOrder order;
    std::vector<std::string> ImageHistory;
    bool Independent = false;

    /// Whether MakeDictionaryItem found all that a search needs.
    bool loaded = false;
    /// What could not be read of it, and why; empty if all could.
    std::string failure;
    /// TxtFi with the places of its lines.
    IndexedTextFile txtLines;
};

/// Fills `item` from its folder; `number` is its position in the group. False, without a message, if `ind`, `mImg`
/// or `txt` is missing: what was set up to then stays. An `ind` or `Format` that exists and cannot be opened, and a nil
/// folder, raise NilObjectException.
bool MakeDictionaryItem(const FolderItem& folder, DictionaryItem& item, int number);

/// How much of a `Format` is read, in bytes: far more than its two lines need.
inline constexpr std::size_t kFormatBytes = std::size_t{1} << 16;

} // namespace velmarin
