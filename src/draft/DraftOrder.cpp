#include "draft/DraftOrder.h"

#include "making/LongestRun.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace velmarin {

namespace {

/// How many rows on either side are considered.
constexpr std::size_t kReach = 50;

std::string quoted(const std::string& headword) {
    return "‘" + headword + "’";
}

/// Compares words of a row with the trusted ones around it.
class Surroundings {
  public:
    Surroundings(const Draft& draft, std::size_t row, const KeyRule& rule, const IndexOrder& order)
        : draft_(draft), row_(row), rule_(rule), order_(order) {
        std::vector<NearWord> near;
        const std::size_t end = std::min(row + 1 + kReach, draft.pages.size());
        for (std::size_t i = row - std::min(row, kReach); i < end; ++i)
            if (i != row && draft.pages[i].state != PageState::Doubtful)
                for (const std::string* headword : {&draft.pages[i].first, &draft.pages[i].last})
                    if (!headword->empty())
                        near.push_back({i, *headword, wordOf(*headword)});
        std::vector<std::string> words;
        words.reserve(near.size());
        for (const NearWord& each : near)
            words.push_back(each.word);
        // A page that is out of place itself contradicts nothing.
        for (const std::size_t i : longestRun(words)) {
            if (near[i].row < row)
                before_ = near[i];
            else if (!after_)
                after_ = near[i];
        }
    }

    std::string problemOf(GuidePlace place, const std::string& headword) const {
        const std::string word = wordOf(headword);
        if (word.empty())
            return {};
        if (before_ && word < before_->word)
            return "comes before " + described(*before_);
        if (after_ && after_->word < word)
            return "comes after " + described(*after_);
        const DraftPage& page = draft_.pages[row_];
        const std::string last = wordOf(page.last);
        if (place == GuidePlace::First && !last.empty() && last < word)
            return "comes after " + quoted(page.last) + ", the last word of the page";
        if (place == GuidePlace::Last && word < wordOf(page.first))
            return "comes before " + quoted(page.first) + ", the first word of the page";
        return {};
    }

    /// Whether the page before has the same guide words.
    bool repeats() const {
        if (row_ == 0 || draft_.pages[row_].first.empty())
            return false;
        const DraftPage& page = draft_.pages[row_];
        const DraftPage& previous = draft_.pages[row_ - 1];
        return page.first == previous.first && page.last == previous.last;
    }

  private:
    struct NearWord {
        std::size_t row = 0;
        std::string headword, word; ///< as printed, and its search word
    };

    std::string wordOf(const std::string& headword) const { return indexSearchWord(rule_.keyOf(headword), order_); }
    std::string described(const NearWord& near) const {
        const DraftPage& page = draft_.pages[near.row];
        return quoted(near.headword) + " on " + (page.number.empty() ? page.page : "page " + page.number);
    }

    const Draft& draft_;
    std::size_t row_;
    const KeyRule& rule_;
    const IndexOrder& order_;
    std::optional<NearWord> before_ = {}, after_ = {};
};

} // namespace

std::string orderProblem(const Draft& draft, std::size_t row, GuidePlace place, const std::string& word,
                         const KeyRule& rule, const IndexOrder& order) {
    return Surroundings(draft, row, rule, order).problemOf(place, word);
}

std::string doubtReason(const Draft& draft, std::size_t row, const KeyRule& rule, const IndexOrder& order) {
    const DraftPage& page = draft.pages[row];
    if (page.state != PageState::Doubtful)
        return {};
    if (page.first.empty() && page.last.empty())
        return "no guide word was read";
    const Surroundings surroundings(draft, row, rule, order);
    if (const std::string problem = surroundings.problemOf(GuidePlace::First, page.first); !problem.empty())
        return quoted(page.first) + " " + problem;
    if (const std::string problem = surroundings.problemOf(GuidePlace::Last, page.last); !problem.empty())
        return quoted(page.last) + " " + problem;
    if (surroundings.repeats())
        return "the page before has the same guide words";
    return "compare with the page, letter by letter";
}

} // namespace velmarin
