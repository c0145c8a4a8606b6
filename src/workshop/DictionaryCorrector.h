#pragma once

#include "files/FolderItem.h"
#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"
#include "store/PageList.h"
#include "workshop/Corrections.h"
#include "workshop/DictionaryText.h"

#include <vector>

namespace velmarin {

/// A dictionary that a reader corrects: first in memory, then, by save, on the disk.
class DictionaryCorrector {
  public:
    /// Reads a dictionary and the corrections that were made in it before. `corrections` is the folder that keeps those
    /// of all dictionaries (correctionsFile).
    static Result open(const FolderItem& dictionary, const FolderItem& corrections, DictionaryCorrector& corrector);

    const FolderItem& dictionary() const { return dictionary_; }
    /// With the corrections that are not saved yet.
    const DictionaryText& text() const { return text_; }
    const PageList& pageList() const { return pageList_; }
    const ImageDictionaryMap& pages() const { return pages_; }
    /// What the "Page" menu calls a page; its file name if it is not there.
    const std::string& captionOf(const std::string& file) const;
    /// The corrections of before.
    const std::vector<Correction>& kept() const { return kept_; }
    /// Those of before that the dictionary needs again, as after an update.
    std::vector<Correction> due() const;

    Result correct(const Correction& correction);
    const std::vector<Correction>& unsaved() const { return unsaved_; }
    /// Takes the last correction that is not saved back.
    void undo();

    /// Adds the corrections that are not saved to the file of corrections, so that they are due when the dictionary is
    /// opened again.
    Result keep() const;
    /// Writes `ind` and `txt`, which change together as in an update (maintenance/Update.h): what they replace goes to
    /// a new folder in `backups`. The corrections are kept first, so that they are due if the dictionary cannot be
    /// written. Fails if a file of the dictionary is write-protected or was changed meanwhile.
    MaintenanceResult save(const FolderItem& backups, const Progress& progress = {});

  private:
    Result checkWritable() const;
    MaintenanceResult replace(const FolderItem& backups, const Progress& progress) const;

    FolderItem dictionary_, file_;
    DictionaryText read_, text_;
    PageList pageList_;
    ImageDictionaryMap pages_;
    std::vector<Correction> kept_, unsaved_;
};

} // namespace velmarin
