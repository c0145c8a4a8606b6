#include "workshop/TryIt.h"

#include "draft/DraftEntries.h"
#include "store/PageList.h"
#include "text/LetterCase.h"
#include "text/UnicodeForms.h"
#include "workshop/DictionaryText.h"

#include <utility>

namespace velmarin {

namespace {

constexpr std::string_view kAfter = "after ";

/// The headword that a line stands for, as printed.
std::string headwordOf(const IndexLine& line) {
    const bool returns = line.key.ends_with(' ') && line.note.starts_with(kAfter);
    return returns ? line.note.substr(kAfter.size()) : line.note.empty() ? line.key : line.note;
}

std::string inQuotes(std::string_view text) {
    return "“" + std::string(text) + "”";
}

std::string typedWord(std::string_view word, const IndexOrder& order) {
    return Uppercase(querySearchWord(word, order));
}

} // namespace

std::string sentenceOf(std::string_view word, const TriedWord& tried) {
    if (tried.file.empty() && tried.before.empty())
        return tried.after.empty() ? inQuotes(word) + " opens no page: there are no headwords."
                                   : inQuotes(word) + " opens no page: it comes before the first headword, " +
                                         inQuotes(tried.after) + ".";
    const std::string page = tried.number.empty() ? tried.file : tried.number + " (" + tried.file + ")";
    const std::string opens = tried.file.empty() ? " opens no page." : " opens page " + page + ".";
    const std::string where =
        tried.exact           ? " It is a headword."
        : tried.after.empty() ? " It comes after the last headword, " + inQuotes(tried.before) + "."
                              : " It comes between " + inQuotes(tried.before) + " and " + inQuotes(tried.after) + ".";
    return inQuotes(word) + opens + where;
}

TryIt::TryIt(const std::vector<BookEntry>& entries, IndexPlan plan, std::vector<BookPage> pages, IndexOrder order)
    : lines_(std::move(plan.lines)), pages_(std::move(pages)), order_(std::move(order)) {
    for (const IndexLine& line : lines_)
        words_.append(indexSearchWord(line.key, order_));
    words_.finish();
    for (const BookEntry& entry : entries)
        headwords_.insert(typedWord(composedForm(entry.headword), order_));
}

TriedWord TryIt::find(std::string_view word) const {
    const std::string typed = typedWord(word, order_);
    const std::size_t place = words_.firstGreater(typed);
    TriedWord tried;
    if (place < lines_.size())
        tried.after = headwordOf(lines_[place]);
    if (place == 0)
        return tried;
    const IndexLine& line = lines_[place - 1];
    tried.before = headwordOf(line);
    tried.file = pages_[line.page].file;
    tried.number = pages_[line.page].number;
    tried.exact = headwords_.contains(typed);
    return tried;
}

TryIt tryDraft(const Draft& draft, const KeyRule& rule, const IndexOrder& order) {
    const std::vector<BookEntry> entries = entriesOf(draft, rule, order);
    std::vector<BookPage> pages;
    pages.reserve(draft.pages.size());
    for (const DraftPage& page : draft.pages)
        pages.push_back({page.page, page.number});
    return {entries, planIndex(entries, rule, order), std::move(pages), order};
}

TriedWord tryIn(const DictionaryText& text, const PageList& list, const ImageDictionaryMap& pages,
                std::string_view word) {
    const std::size_t place = text.placeOf(word);
    TriedWord tried;
    if (place < text.size())
        tried.after = text.headword(place);
    if (place == 0)
        return tried;
    tried.before = text.headword(place - 1);
    if (place == text.size()) // the last line is never found
        return tried;
    tried.file = text.page(place - 1);
    tried.exact = text.isFoundBy(place - 1, word);
    const auto row = static_cast<std::size_t>(pages.value(tried.file));
    if (pages.has(tried.file) && list.captions[row] != tried.file)
        tried.number = list.captions[row];
    return tried;
}

} // namespace velmarin
