#pragma once

#include "book/BookReadings.h"
#include "workshop/WorkshopBook.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velmarin {

/// The book of a scan, in its working folder.
class ScannedBook : public WorkshopBook {
  public:
    /// @param folder opened to be written to
    explicit ScannedBook(std::unique_ptr<BookFolder> folder);

    /// While a run reads the book, its settings are the run's.
    BookFolder& folder() { return *folder_; }
    /// What was read, at first nothing. From then on `mended` gives a row for each page that was read.
    void takeReadings(std::shared_ptr<const BookReadings> readings) { readings_ = std::move(readings); }

    /// The page of the scan, from 1, that a page is or is a half of; nullopt while it is not known.
    std::optional<int> scanPage(const std::string& page) const;

    std::string name() const override;
    FolderItem picture(const std::string& page) const override;
    PageBox headStrip(const std::string& page) const override { return readings_->headStrip(page); }
    std::vector<PageBox> headWords(const std::string& page) const override { return readings_->headWords(page); }
    const PageGuess* guess(const std::string& page) const override { return readings_->guess(page); }
    KeyRule keyRule() const override { return readings_->keyRule(); }
    IndexOrder indexOrder() const override { return readings_->indexOrder(); }
    Draft mended(const Draft& draft) override;
    Result save(const Draft& draft) override;
    std::optional<Draft> changedOutside() override;

  private:
    /// What tells one state of the draft's file from another.
    struct FileState {
        std::filesystem::file_time_type changed = {};
        std::uintmax_t size = 0;
        friend bool operator==(const FileState&, const FileState&) = default;
    };
    FileState stateOfFile() const;

    std::unique_ptr<BookFolder> folder_;
    FolderItem pageFolder_; ///< where the pages were when the book was opened
    std::shared_ptr<const BookReadings> readings_ = std::make_shared<BookReadings>();
    Draft mended_;    ///< what the readings last gave
    FileState known_; ///< when the draft was last saved or read
};

} // namespace velmarin
