#include "workshop/BookReadings.h"

#include "workshop/DraftMending.h"

#include <utility>

namespace velmarin {

namespace {

std::unordered_map<std::string, const DraftPage*> rowsByPage(const Draft& draft) {
    std::unordered_map<std::string, const DraftPage*> rows;
    for (const DraftPage& row : draft.pages)
        rows.emplace(row.page, &row);
    return rows;
}

} // namespace

BookReadings::BookReadings() : mender_(std::make_shared<const DraftMender>(std::vector<PageGuess>(), rule_, order_)) {}

BookReadings::BookReadings(const BookFolder& book) {
    Readings readings = book.readings();
    std::vector<PageReading> read;
    for (BookPicture& page : book.pages()) {
        ReadPage each{.scanned = std::move(page)};
        if (const auto found = readings.find(each.scanned.name); found != readings.end()) {
            each.headStrip = found->second.reading.headStrip;
            read.push_back(std::move(found->second.reading));
        }
        pageAt_.emplace(each.scanned.name, pages_.size());
        pages_.push_back(std::move(each));
    }
    guesses_ = guessGuideWords(read);
    for (std::size_t i = 0; i < guesses_.size(); ++i)
        guessAt_.emplace(guesses_[i].page, i);
    rule_ = KeyRule::parse(book.settings().ignore, book.settings().alike).value_or(KeyRule());
    order_ = book.settings().order;
    mender_ = std::make_shared<const DraftMender>(guesses_, rule_, order_);
}

const BookPicture* BookReadings::page(const std::string& name) const {
    const auto found = pageAt_.find(name);
    return found == pageAt_.end() ? nullptr : &pages_[found->second].scanned;
}

PageBox BookReadings::headStrip(const std::string& name) const {
    const auto found = pageAt_.find(name);
    return found == pageAt_.end() ? PageBox{} : pages_[found->second].headStrip;
}

const PageGuess* BookReadings::guess(const std::string& name) const {
    const auto found = guessAt_.find(name);
    return found == guessAt_.end() ? nullptr : &guesses_[found->second];
}

Draft BookReadings::mended(const Draft& draft) const {
    std::vector<DraftPage> set;
    for (const DraftPage& row : draft.pages)
        if (row.state == PageState::Set)
            set.push_back(row);
    const Draft read = mender_->mended(set);
    const auto mended = rowsByPage(read), before = rowsByPage(draft);
    Draft result;
    for (const ReadPage& page : pages_)
        for (const auto* rows : {&mended, &before})
            if (const auto found = rows->find(page.scanned.name); found != rows->end()) {
                result.pages.push_back(*found->second);
                break;
            }
    return result;
}

} // namespace velmarin
