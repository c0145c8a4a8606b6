#include "ScriptedBook.h"

#include <sstream>

namespace velmarin::test {

namespace {

constexpr std::string_view kMarks = "+~?!"; // in the order of PageState

} // namespace

Draft draftOf(const std::string& rows) {
    std::istringstream words(rows);
    Draft draft;
    for (std::string word; words >> word;) {
        const auto state = static_cast<PageState>(kMarks.find(word.back()));
        word.pop_back();
        const std::string number = std::to_string(draft.pages.size() + 1);
        const std::string first = word == "-" ? "" : word;
        draft.pages.push_back(
            {.page = number + ".tif", .number = number, .first = first, .last = first, .state = state});
    }
    return draft;
}

std::string rowsOf(const Draft& draft) {
    std::string rows;
    for (const DraftPage& page : draft.pages)
        rows += (rows.empty() ? "" : " ") + (page.first.empty() ? "-" : page.first) +
                kMarks[static_cast<std::size_t>(page.state)];
    return rows;
}

} // namespace velmarin::test
