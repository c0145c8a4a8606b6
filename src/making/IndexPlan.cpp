#include "making/IndexPlan.h"

#include "making/LongestRun.h"
#include "making/OneLine.h"
#include "text/LetterCase.h"
#include "text/UnicodeForms.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velmarin {

namespace {

/// No headword sorts between a word and the same with this after it.
constexpr char kAfter = ' ';

struct SortedLine {
    std::string word; ///< the search word of the key
    IndexLine line;
};

std::string keyOf(const BookEntry& entry, const KeyRule& rule, const IndexOrder& order) {
    std::string key = rule.keyOf(entry.headword);
    if (!order.FormatFom.empty())
        key = mSub_Format(key, order.FormatFom);
    if (entry.after)
        key += kAfter;
    return key;
}

IndexLine lineOf(const BookEntry& entry, std::string key) {
    const std::string printed = composedForm(entry.headword);
    std::string note = entry.after ? "after " + printed : key == printed ? "" : printed;
    return {.key = std::move(key), .note = std::move(note), .page = entry.page, .errata = entry.errata};
}

/// The line that a search for `word` reads; nullptr before the first.
const SortedLine* lineFor(const std::vector<SortedLine>& lines, const std::string& word) {
    const auto greater = std::upper_bound(lines.begin(), lines.end(), word,
                                          [](const std::string& w, const SortedLine& each) { return w < each.word; });
    return greater == lines.begin() ? nullptr : &*(greater - 1);
}

/// What a search makes of the headword, as a reader types it.
std::string typedWord(const BookEntry& entry, const IndexOrder& order) {
    return Uppercase(querySearchWord(composedForm(entry.headword), order));
}

/// The lines of the entries that keep the order, one for each key.
std::vector<SortedLine> linesInOrder(const std::vector<BookEntry>& entries, const std::vector<std::size_t>& run,
                                     const std::vector<std::string>& keys, const std::vector<std::string>& words,
                                     const IndexOrder& order) {
    std::vector<SortedLine> lines;
    const auto isTyped = [&](std::size_t i) { return typedWord(entries[i], order) == words[i]; };
    std::size_t taken = 0; // the entry of the last line
    for (const std::size_t i : run) {
        SortedLine made{words[i], lineOf(entries[i], keys[i])};
        if (lines.empty() || lines.back().word != words[i]) {
            lines.push_back(std::move(made));
            taken = i;
            continue;
        }
        SortedLine& last = lines.back();
        if (entries[i].after) {
            last = std::move(made);
            continue;
        }
        // The other one gets a line of its own where its typed form sorts.
        if (!isTyped(taken) && isTyped(i)) {
            std::swap(last, made);
            taken = i;
        }
        std::move(made.line.errata.begin(), made.line.errata.end(), std::back_inserter(last.line.errata));
    }
    return lines;
}

std::vector<Misplaced> misplacedEntries(std::size_t count, const std::vector<std::size_t>& run) {
    std::vector<Misplaced> misplaced;
    auto next = run.begin();
    for (std::size_t i = 0; i < count; ++i) {
        if (next != run.end() && *next == i) {
            ++next;
            continue;
        }
        Misplaced found{.entry = i};
        if (next != run.begin())
            found.before = *(next - 1);
        if (next != run.end())
            found.after = *next;
        misplaced.push_back(found);
    }
    return misplaced;
}

/// Lines that lead from the typed form of a headword to its page where `lines` does not.
std::vector<SortedLine> linesOfTypedForms(const std::vector<BookEntry>& entries, const std::vector<SortedLine>& lines,
                                          const IndexOrder& order) {
    std::vector<SortedLine> typed;
    for (const BookEntry& entry : entries) {
        if (entry.after)
            continue;
        const std::string word = typedWord(entry, order);
        const SortedLine* found = lineFor(lines, word);
        const bool taken = found != nullptr && found->word == word;
        if (taken || word.empty() || (found != nullptr && found->line.page == entry.page && entry.errata.empty()))
            continue;
        typed.push_back({word, lineOf(entry, composedForm(entry.headword))});
    }
    // Of headwords that are typed alike the first counts.
    std::stable_sort(typed.begin(), typed.end(),
                     [](const auto& one, const auto& other) { return one.word < other.word; });
    typed.erase(std::unique(typed.begin(), typed.end(),
                            [](const auto& one, const auto& other) { return one.word == other.word; }),
                typed.end());
    return typed;
}

/// Puts each of `typed` into its place among `lines`, followed by a line that returns to the page before it.
std::vector<IndexLine> merged(std::vector<SortedLine> lines, std::vector<SortedLine> typed) {
    std::vector<IndexLine> all;
    auto next = lines.begin();
    std::size_t page = lines.empty() ? 0 : next->line.page;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        for (; next != lines.end() && next->word < typed[i].word; ++next) {
            page = next->line.page;
            all.push_back(std::move(next->line));
        }
        const std::string& key = typed[i].line.key;
        IndexLine back{.key = key + kAfter, .note = "after " + key, .page = page};
        const std::string wordOfBack = typed[i].word + kAfter;
        all.push_back(std::move(typed[i].line));
        const bool taken = (next != lines.end() && next->word == wordOfBack) ||
                           (i + 1 < typed.size() && typed[i + 1].word == wordOfBack);
        if (!taken)
            all.push_back(std::move(back));
    }
    for (; next != lines.end(); ++next)
        all.push_back(std::move(next->line));
    return all;
}

} // namespace

IndexPlan planIndex(std::vector<BookEntry> entries, const KeyRule& rule, const IndexOrder& order) {
    std::vector<std::string> keys, words;
    for (BookEntry& entry : entries)
        entry.headword = inOneLine(std::move(entry.headword)); // a cell of a spreadsheet may have several
    for (const BookEntry& entry : entries) {
        keys.push_back(keyOf(entry, rule, order));
        words.push_back(indexSearchWord(keys.back(), order));
    }
    const std::vector<std::size_t> run = longestRun(words);
    std::vector<SortedLine> lines = linesInOrder(entries, run, keys, words, order);
    std::vector<SortedLine> typed = linesOfTypedForms(entries, lines, order);
    return {.lines = merged(std::move(lines), std::move(typed)), .misplaced = misplacedEntries(entries.size(), run)};
}

} // namespace velmarin
