#pragma once

#include "files/FolderItem.h"
#include "files/IndexedTextFile.h"
#include "store/HeadwordIndex.h"
#include "text/SearchWord.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmarin {

/// How pages fit the canvas. ImageMode is kept as a plain number, since files may hold any; these are the ones with a
/// menu row, and the one that list mode sets.
enum : int { kAdjustByHeight = 0, kOriginalSize = 1, kAdjustByWidth = 2, kListModeImageMode = 3 };

/// The pages of a dictionary in order: row n of the jump menu shows captions[n] and stands for names[n].
struct PageList {
    std::vector<std::string> names;
    std::vector<std::string> captions;
};

/// Image file name to its position in the page list. Names are equal when case and Unicode composition are ignored; of
/// equal names the later position holds.
class ImageDictionaryMap {
  public:
    void clear() { positions_.clear(); }
    void set(std::string_view name, int position);
    /// 0 for a name that is not there: the first page in the menu.
    int value(std::string_view name) const;
    bool has(std::string_view name) const;

  private:
    std::unordered_map<std::string, int> positions_;
};

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
    /// TxtFi with the places of its lines.
    IndexedTextFile txtLines;
};

/// One row of a list-mode search.
struct HitItem {
    std::string ImageName;
    std::string DictionaryName;
    std::vector<std::string> PageImageName;
    int DictionaryNumber = 0;
};

/// Fills `item` from its folder; `number` is its position in the group. False, without a message, where `ind`, `mImg`
/// or `txt` is missing: what was set up to then stays. An `ind` or `Format` that exists and cannot be opened, and a nil
/// folder, raise NilObjectException.
bool MakeDictionaryItem(const FolderItem& folder, DictionaryItem& item, int number);

/// Any one of these makes a folder a dictionary to mSub_DicOrNot.
inline constexpr std::array kDictionaryMembers = {"FW",   "BW",    "ind",  "KW",   "KWTB", "format",
                                                  "mImg", "mPimg", "mHtm", "mMov", "mSnd"};

/// How much of a `Format` is read, in bytes: far more than its two lines need.
inline constexpr std::size_t kFormatBytes = std::size_t{1} << 16;

/// Whether install, update and export take a folder for a dictionary: not an alias, a directory, and any one of
/// kDictionaryMembers in it.
bool mSub_DicOrNot(const FolderItem& item);

/// The page list of a dictionary's `mImg`: `ImageIndex2` (name, TAB, caption) or else `ImageIndex` (name), whose first
/// line is the index of the last page. If there is neither, `ImageIndex` is made; if it cannot be written, as on a
/// read-only medium, the list of the pictures is used without it.
///
/// Raises NilObjectException if an index cannot be opened, or if there is none and no picture. A first line that
/// is not a number counts as 0. An index that promises more lines than it has gives empty names up to the promised
/// count, at most kMostPages of them.
PageList readPageList(const FolderItem& imageFolder);
inline constexpr int kMostPages = 200'000;

} // namespace velmarin
