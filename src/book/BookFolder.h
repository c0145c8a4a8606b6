#pragma once

#include "book/BookSettings.h"
#include "book/ReadingLog.h"
#include "draft/Draft.h"
#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/Result.h"

#include <string>
#include <vector>

namespace velmarin {

/// A page of a book in the making.
struct BookPicture {
    std::string name; ///< of its picture file, by which the book knows it
    int scanPage = 1; ///< the page of the scan that it is or is a half of, from 1
    FolderItem picture;
};

enum class BookAccess {
    Read,
    Write, ///< alone: fails at once if another run has the book open so
};

/// The working folder of a book in the making:
///
///     book.json       its settings
///     source          a link to the scan
///     draft.tsv       the draft
///     mended.tsv      its rows as they were last mended (MendedRows)
///     readings.jsonl  what was read of its pages (ReadingLog)
///     pages/          the pictures, if they had to be taken out of the scan, cut or turned: those of a folder by its
///                     names, with "a" and "b" for two that were cut; "p0001.tif" and so on for those of a file
///
/// The scan is never written to. A folder with anything but a book in it is refused.
class BookFolder {
  public:
    /// Opens a book. Fails if the folder is something else, or if its scan is missing.
    Result open(const FolderItem& folder, BookAccess access);
    /// Opens the book of a scan (a folder of pictures or a file) to write, or makes one in a new or empty folder. Fails
    /// too if the book is of another scan that still exists, or one of the two is in the other.
    Result openFor(const FolderItem& source, const FolderItem& folder);

    const FolderItem& folder() const { return folder_; }
    /// The scan.
    const FolderItem& source() const { return source_; }

    const BookSettings& settings() const { return settings_; }
    Result saveSettings(BookSettings settings);

    /// Whether its pages have pictures in the folder of the book, because the scan has no files of its own for them.
    bool takesPagesOut() const;
    /// The pages in the order of the book, without those that are left out. Those that have to be taken out are there
    /// after readBook (book/DraftRun.h) has done so.
    std::vector<BookPicture> pages() const;
    /// The folder of their pictures.
    FolderItem pageFolder() const { return takesPagesOut() ? takenPagesFolder() : source_; }
    /// The pages that are in the folder of the book, those that are left out too.
    std::vector<BookPicture> takenPages() const;
    FolderItem takenPagesFolder() const { return file("pages"); }
    /// The pictures of a scan that is a folder, in the order of its pages.
    std::vector<std::string> scanFiles() const;

    /// The draft as it was last saved, without a row if there is none yet. Rows that were edited since by another
    /// program count as set. Fails if the file is not a draft.
    Result loadDraft(Draft& draft) const;
    Result saveDraft(const Draft& draft) const;
    FolderItem draftFile() const { return file("draft.tsv"); }

    /// What was read so far, by the name of the page; pages that are gone may be among them.
    Readings readings() const;
    /// The file of the readings.
    FolderItem readingsFile() const { return file("readings.jsonl"); }

  private:
    Result lock();
    Result make();
    Result readSettings();
    Result findSource();
    Result linkTo(const FolderItem& source);
    FolderItem file(const char* name) const { return FolderItem(folder_.path() / name); }

    FolderItem mendedFile() const { return file("mended.tsv"); }

    FolderItem folder_, source_;
    BookSettings settings_;
    Descriptor lock_;
};

} // namespace velmarin
