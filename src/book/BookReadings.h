#pragma once

#include "book/BookFolder.h"
#include "making/KeyRule.h"
#include "reading/PageGuess.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmarin {

class DraftMender;

/// What was read of a book until now, ready to be shown and mended. Made in the background: it takes a moment for a
/// large book.
class BookReadings {
  public:
    BookReadings();
    explicit BookReadings(const BookFolder& book);

    /// nullptr for a page that the book does not have.
    const BookPicture* page(const std::string& name) const;
    /// Empty if the page was not read.
    PageBox headStrip(const std::string& name) const;
    /// The words in the head strip, from left to right. Empty if the page was not read.
    std::vector<PageBox> headWords(const std::string& name) const;
    /// nullptr if the page was not read.
    const PageGuess* guess(const std::string& name) const;

    const KeyRule& keyRule() const { return rule_; }
    const IndexOrder& indexOrder() const { return settings_.order; }

    const std::vector<BookPicture>& pages() const { return pages_; }
    /// The rows of all pages, given those that a person has set. Numbers that the settings give go before those that
    /// were read.
    Draft wholeDraft(const std::vector<DraftPage>& set) const;
    /// The rows of all pages that were read or set, given those that a person has set.
    Draft draft(const std::vector<DraftPage>& set) const;

  private:
    std::vector<BookPicture> pages_;
    BookSettings settings_;
    std::unordered_map<std::string, std::size_t> places_; ///< of pages in pages_ and guesses_
    struct Head {
        PageBox strip;
        std::vector<PageBox> words;
    };
    std::unordered_map<std::string, Head> heads_; ///< of pages that were read
    std::vector<PageGuess> guesses_;              ///< one for each page
    KeyRule rule_;
    std::shared_ptr<const DraftMender> mender_;
};

} // namespace velmarin
