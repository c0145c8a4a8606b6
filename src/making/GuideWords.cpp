#include "making/GuideWords.h"

#include <utility>

namespace velmarin {

namespace {

/// Turns guide words into entries, page by page.
class EntryList {
  public:
    EntryList(const KeyRule& rule, const IndexOrder& order) : rule_(rule), order_(order) {}

    void add(const GuideWords& guide) {
        const std::string first = wordOf(guide.first);
        const std::string last = wordOf(guide.last);
        const bool missing = first.empty() && (guide.doubtful || !last.empty());
        const bool beginsAfter = !lastBefore_.empty() && (missing || (guide.doubtful && !doubtfulBefore_));
        const bool continues = !first.empty() && first == wordBefore_;
        if (beginsAfter)
            entries_.push_back({.headword = lastBefore_, .page = guide.page, .after = true, .errata = guide.errata});
        else if (!first.empty() && !(continues && last == first))
            entries_.push_back(
                {.headword = guide.first, .page = guide.page, .after = continues, .errata = guide.errata});
        entries_.insert(entries_.end(), guide.between.begin(), guide.between.end());
        if (!last.empty() && last != first)
            entries_.push_back({.headword = guide.last, .page = guide.page});
        if (!first.empty() || !last.empty())
            wordBefore_ = last.empty() ? first : last;
        if (!first.empty() || !last.empty() || guide.doubtful) {
            lastBefore_ = guide.last;
            doubtfulBefore_ = guide.doubtful;
        }
    }

    std::vector<BookEntry> take() { return std::move(entries_); }

  private:
    std::string wordOf(const std::string& headword) const { return indexSearchWord(rule_.keyOf(headword), order_); }

    const KeyRule& rule_;
    const IndexOrder& order_;
    std::vector<BookEntry> entries_ = {};
    std::string wordBefore_ = {}; ///< the search word of the last headword that is known of the page before
    std::string lastBefore_ = {}; ///< the last guide word of the page before
    bool doubtfulBefore_ = false; ///< it may be wrong
};

} // namespace

std::vector<BookEntry> entriesOf(const std::vector<GuideWords>& guides, const KeyRule& rule, const IndexOrder& order) {
    EntryList entries(rule, order);
    for (const GuideWords& guide : guides)
        entries.add(guide);
    return entries.take();
}

} // namespace velmarin
