#pragma once

#include "workshop/WorkshopBook.h"

#include <map>
#include <string>
#include <vector>

namespace velmarin::test {

/// A book without files. Where "b" is set as the first word of a page, the page after it mends to "c".
struct ScriptedBook : WorkshopBook {
    bool full = false; ///< the disk
    int saves = 0;
    Draft savedDraft;
    std::optional<Draft> outside;
    std::map<std::string, PageGuess> guesses;
    std::map<std::string, FolderItem> pictures;

    std::string name() const override { return "Book"; }
    FolderItem picture(const std::string& page) const override {
        const auto found = pictures.find(page);
        return found == pictures.end() ? FolderItem() : found->second;
    }
    PageBox headStrip(const std::string&) const override { return {}; }
    std::vector<PageBox> headWords(const std::string&) const override { return {}; }
    const PageGuess* guess(const std::string& page) const override {
        const auto found = guesses.find(page);
        return found == guesses.end() ? nullptr : &found->second;
    }
    KeyRule keyRule() const override { return {}; }
    IndexOrder indexOrder() const override { return {}; }
    Draft mended(const Draft& draft) override {
        Draft to = draft;
        for (std::size_t i = 1; i < to.pages.size(); ++i)
            if (to.pages[i - 1].first == "b" && to.pages[i].state == PageState::Doubtful)
                to.pages[i].first = "c", to.pages[i].state = PageState::Mended;
        return to;
    }
    Result save(const Draft& draft) override {
        ++saves;
        if (full)
            return Failure{FolderItem("/book/draft.tsv"), "it could not be written: No space left on device"};
        savedDraft = draft;
        return {};
    }
    std::optional<Draft> changedOutside() override { return std::exchange(outside, std::nullopt); }
};

/// A draft of pages "1.tif", "2.tif" ... from their first words and states: "a+ b? c~ d!" for certain, doubtful, mended
/// and set ones. "-" is an empty word.
Draft draftOf(const std::string& rows);
/// The same back.
std::string rowsOf(const Draft& draft);

} // namespace velmarin::test
