#include "book/BookReadings.h"

#include "draft/DraftMending.h"
#include "making/PrintedNumbers.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace velmarin {

namespace {

/// Numbers the rows of `draft`, one for each of `pages`, from the first number that the settings give. Rows that a
/// person has set keep theirs.
void takeGivenNumbers(const std::vector<BookPicture>& pages, const BookSettings& settings, Draft& draft) {
    std::vector<std::string> numbers;
    std::unordered_set<int> seen;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const bool firstOfPage = seen.insert(pages[i].scanPage).second;
        const auto given = std::find_if(settings.numbers.begin(), settings.numbers.end(), [&](const GivenNumber& each) {
            return firstOfPage && each.page == pages[i].scanPage;
        });
        if (given == settings.numbers.end() && numbers.empty())
            continue;
        const DraftPage& row = draft.pages[i];
        const std::string setNumber = row.state == PageState::Set ? row.number : std::string();
        numbers.push_back(setNumber.empty() && given != settings.numbers.end() ? given->number : setNumber);
    }
    numbers = filledPrintedNumbers(std::move(numbers));
    for (std::size_t i = pages.size() - numbers.size(), next = 0; i < pages.size(); ++i, ++next)
        draft.pages[i].number = numbers[next];
}

std::vector<PageBox> wordsInStrip(const PageReading& reading) {
    const PageBox& strip = reading.headStrip;
    std::vector<PageBox> words;
    for (const PageText* text : {&reading.head, &reading.foot})
        for (const TextLine& line : text->lines)
            for (const TextWord& word : line.words)
                if (const int middle = word.box.y + word.box.height / 2;
                    middle >= strip.y && middle < strip.bottom() && !word.box.empty())
                    words.push_back(word.box);
    std::sort(words.begin(), words.end(), [](const PageBox& a, const PageBox& b) { return a.x < b.x; });
    return words;
}

} // namespace

BookReadings::BookReadings()
    : mender_(std::make_shared<const DraftMender>(std::vector<PageGuess>(), rule_, IndexOrder())) {}

BookReadings::BookReadings(const BookFolder& book)
    : pages_(book.pages()), settings_(book.settings()), rule_(keyRuleOf(settings_)) {
    Readings logged = book.readings();
    std::vector<PageReading> readings;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const std::string& name = pages_[i].name;
        places_.emplace(name, i);
        readings.push_back({.page = name});
        if (const auto found = logged.find(name); found != logged.end()) {
            const PageReading& reading = found->second.reading;
            heads_.emplace(name, Head{reading.headStrip, wordsInStrip(reading)});
            readings.back() = std::move(found->second.reading);
            readings.back().page = name;
        }
    }
    guesses_ = guessGuideWords(readings);
    mender_ = std::make_shared<const DraftMender>(guesses_, rule_, settings_.order);
}

const BookPicture* BookReadings::page(const std::string& name) const {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : &pages_[found->second];
}

PageBox BookReadings::headStrip(const std::string& name) const {
    const auto found = heads_.find(name);
    return found == heads_.end() ? PageBox{} : found->second.strip;
}

std::vector<PageBox> BookReadings::headWords(const std::string& name) const {
    const auto found = heads_.find(name);
    return found == heads_.end() ? std::vector<PageBox>() : found->second.words;
}

const PageGuess* BookReadings::guess(const std::string& name) const {
    return heads_.contains(name) ? &guesses_[places_.at(name)] : nullptr;
}

Draft BookReadings::wholeDraft(const std::vector<DraftPage>& set) const {
    Draft draft = mender_->mended(set);
    takeGivenNumbers(pages_, settings_, draft);
    return draft;
}

Draft BookReadings::draft(const std::vector<DraftPage>& set) const {
    Draft draft = wholeDraft(set);
    std::erase_if(draft.pages,
                  [this](const DraftPage& row) { return row.state != PageState::Set && !heads_.contains(row.page); });
    return draft;
}

} // namespace velmarin
