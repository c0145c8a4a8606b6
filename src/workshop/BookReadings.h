#pragma once

#include "reading/PageGuess.h"
#include "workshop/BookFolder.h"
#include "workshop/KeyRule.h"

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
    /// nullptr if the page was not read.
    const PageGuess* guess(const std::string& name) const;

    const KeyRule& keyRule() const { return rule_; }
    const IndexOrder& indexOrder() const { return order_; }

    /// Rows for all pages that were read, with those of `draft` that a person has set. Rows of `draft` for pages that
    /// were not read stay, if the book still has the page.
    Draft mended(const Draft& draft) const;

  private:
    struct ReadPage {
        BookPicture scanned;
        PageBox headStrip = {};
    };
    std::vector<ReadPage> pages_;
    std::vector<PageGuess> guesses_;
    KeyRule rule_;
    IndexOrder order_;
    std::shared_ptr<const DraftMender> mender_;
    std::unordered_map<std::string, std::size_t> pageAt_, guessAt_;
};

} // namespace velmarin
