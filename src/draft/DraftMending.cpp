#include "draft/DraftMending.h"

#include "draft/NumberMending.h"
#include "draft/SlotDecision.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace velmarin {

namespace {

/// What a row must have to need no person.
constexpr double kTrustOfCertain = 0.985, kTrustOfMended = 0.95;
constexpr int kConfidenceOfPlate = 95, kConfidenceOfFrontMatter = 90;
/// At most one page in so many is front matter or appendix.
constexpr std::size_t kMostOutside = 3;
/// If more pages lack a word than this part, the book has none at that place.
constexpr double kLeastWithWord = 0.6;

/// The rows that a person has set, by page; nullptr for the others.
std::vector<const DraftPage*> rowsByPage(const std::vector<PageGuess>& guesses, const std::vector<DraftPage>& set) {
    std::unordered_map<std::string, const DraftPage*> byName;
    for (const DraftPage& row : set)
        byName[row.page] = &row;
    std::vector<const DraftPage*> rows;
    rows.reserve(guesses.size());
    for (const PageGuess& guess : guesses) {
        const auto found = byName.find(guess.page);
        rows.push_back(found == byName.end() ? nullptr : found->second);
    }
    return rows;
}

std::vector<std::string> numbersOf(const std::vector<PageGuess>& guesses, const std::vector<const DraftPage*>& set) {
    std::vector<NumberGuess> numbers;
    for (std::size_t i = 0; i < guesses.size(); ++i) {
        NumberGuess number{.readings = guesses[i].number, .set = set[i] != nullptr};
        if (set[i] != nullptr)
            number.readings = set[i]->number.empty() ? std::vector<Guess>() : std::vector<Guess>{{set[i]->number, 1}};
        numbers.push_back(std::move(number));
    }
    return mendedNumbers(numbers);
}

int inHundred(double trust) {
    return std::clamp(static_cast<int>(trust * 100), 0, 99);
}

/// Makes the rows of the pages that no person has set.
class Rows {
  public:
    Rows(const std::vector<PageGuess>& guesses, const std::vector<GuideSlot>& slots, const SlotRun& run)
        : guesses_(guesses), run_(run), decisions_(decideSlots(slots, run)) {
        std::size_t pages = 0, firsts = 0, lasts = 0;
        for (std::size_t i = 0; i < guesses.size(); ++i) {
            const bool first = !slots[2 * i].readings.empty(), last = !slots[2 * i + 1].readings.empty();
            pages += (first || last) && !guesses[i].unheaded ? 1 : 0;
            firsts += first && !guesses[i].unheaded ? 1 : 0;
            lasts += last ? 1 : 0;
        }
        needsFirst_ = static_cast<double>(firsts) > kLeastWithWord * static_cast<double>(pages);
        needsLast_ = static_cast<double>(lasts) > kLeastWithWord * static_cast<double>(pages);
    }

    DraftPage rowOf(std::size_t page) const {
        DraftPage row{.page = guesses_[page].page};
        if (guesses_[page].look != PageLook::Text) {
            row.confidence = kConfidenceOfPlate;
            row.state = PageState::Certain;
            return row;
        }
        const SlotDecision& first = decisions_[2 * page];
        const SlotDecision& last = decisions_[2 * page + 1];
        if (page < run_.begin || page >= run_.end)
            return outsideRow(page, std::move(row));
        row.first = first.text;
        row.last = last.text;
        const bool whole = (!first.text.empty() || !needsFirst_) &&
                           (!last.text.empty() || !needsLast_ || guesses_[page].unheaded) &&
                           !(first.text.empty() && last.text.empty());
        const double trust = (first.text.empty() ? 1 : first.trust) * (last.text.empty() ? 1 : last.trust);
        row.confidence = whole ? inHundred(trust) : std::min(inHundred(trust), 40);
        if (whole && !repeats(page))
            row.state = stateOf(trust, first.mended || last.mended);
        return row;
    }

  private:
    static PageState stateOf(double trust, bool mended) {
        if (trust < (mended ? kTrustOfMended : kTrustOfCertain))
            return PageState::Doubtful;
        return mended ? PageState::Mended : PageState::Certain;
    }

    /// A page before or after the alphabet. Its words are titles, and without words it is front matter or an appendix,
    /// unless it is the next one, or so many pages are outside that the order is not that of the book.
    DraftPage outsideRow(std::size_t page, DraftPage row) const {
        const std::vector<Guess>&first = guesses_[page].first, &last = guesses_[page].last;
        const bool words = !first.empty() || !last.empty();
        const std::size_t outside = guesses_.size() - (run_.end - run_.begin);
        row.confidence = kConfidenceOfFrontMatter;
        const bool mostly = outside * kMostOutside > guesses_.size();
        row.state = words ? PageState::Mended : PageState::Certain;
        if (mostly || page + 1 == run_.begin || page == run_.end) {
            row.first = first.empty() ? "" : first.front().text;
            row.last = last.empty() ? "" : last.front().text;
            row.confidence = 0;
            row.state = PageState::Doubtful;
        }
        return row;
    }

    /// Whether the page has the same two words as the one before, as a page that was scanned twice.
    bool repeats(std::size_t page) const {
        if (page == 0)
            return false;
        const std::string& first = decisions_[2 * page].text;
        const std::string& last = decisions_[2 * page + 1].text;
        return !first.empty() && !last.empty() && first != last && first == decisions_[2 * page - 2].text &&
               last == decisions_[2 * page - 1].text;
    }

    const std::vector<PageGuess>& guesses_;
    const SlotRun& run_;
    std::vector<SlotDecision> decisions_;
    bool needsFirst_ = false, needsLast_ = false;
};

} // namespace

DraftMender::DraftMender(std::vector<PageGuess> guesses, KeyRule rule, IndexOrder order)
    : guesses_(std::move(guesses)), rule_(std::move(rule)), order_(std::move(order)),
      slots_(guideSlotsOf(guesses_, rule_, order_)) {}

Draft DraftMender::mended(const std::vector<DraftPage>& set) const {
    const std::vector<const DraftPage*> rows = rowsByPage(guesses_, set);
    const RankedSlots ranked = rankedSlots(slots_, rows, rule_, order_);
    const SlotRun run = heaviestRun(ranked);
    const Rows made(guesses_, ranked.guideSlots, run);
    const std::vector<std::string> numbers = numbersOf(guesses_, rows);
    Draft draft;
    for (std::size_t i = 0; i < guesses_.size(); ++i) {
        draft.pages.push_back(rows[i] == nullptr ? made.rowOf(i) : *rows[i]);
        draft.pages.back().number = numbers[i];
        if (rows[i] != nullptr)
            draft.pages.back().state = PageState::Set;
    }
    return draft;
}

Draft mendedDraft(const std::vector<PageGuess>& guesses, const std::vector<DraftPage>& set, const KeyRule& rule,
                  const IndexOrder& order) {
    return DraftMender(guesses, rule, order).mended(set);
}

} // namespace velmarin
