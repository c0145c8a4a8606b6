#include "draft/Draft.h"

#include "draft/PageNames.h"
#include "files/AtomicFile.h"
#include "making/SeparatedValues.h"
#include "text/LetterCase.h"
#include "text/NumberText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmarin {

namespace {

constexpr std::array<std::pair<PageState, std::string_view>, 4> kStateNames{{{PageState::Certain, "certain"},
                                                                             {PageState::Mended, "mended"},
                                                                             {PageState::Doubtful, "doubtful"},
                                                                             {PageState::Set, "set"}}};

PageState stateOf(std::string_view name) {
    const auto found = std::find_if(kStateNames.begin(), kStateNames.end(),
                                    [name](const auto& each) { return equalStrings(each.second, name); });
    return found == kStateNames.end() ? PageState::Doubtful : found->first;
}

/// CDbl passes over what follows the digits: spreadsheets write "87%" for 87.
int confidenceOf(std::string_view text) {
    return std::clamp(toInt32(CDbl(text)), 0, 100);
}

} // namespace

std::string_view nameOf(PageState state) {
    return std::find_if(kStateNames.begin(), kStateNames.end(),
                        [state](const auto& each) { return each.first == state; })
        ->second;
}

std::string formatDraft(const Draft& draft) {
    const bool errata =
        std::any_of(draft.pages.begin(), draft.pages.end(), [](const DraftPage& page) { return !page.errata.empty(); });
    std::string text = std::string("page\tnumber\tfirst\tlast\tconfidence\tstate") + (errata ? "\terrata\n" : "\n");
    for (const DraftPage& page : draft.pages) {
        for (const std::string& field : {page.page, page.number, page.first, page.last})
            text += tabSeparatedField(field) + '\t';
        text += Str(page.confidence) + '\t';
        text += nameOf(page.state);
        text += (errata ? '\t' + tabSeparatedField(page.errata) : "") + '\n';
    }
    return text;
}

std::optional<Draft> parseDraft(std::string_view text) {
    const SeparatedValues table = SeparatedValues::parse(text);
    if (!table.isWhole() || !table.hasColumn("page"))
        return std::nullopt;
    Draft draft;
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        const auto field = [&](std::string_view name) { return std::string(table.field(row, name)); };
        if (field("page").empty())
            continue;
        draft.pages.push_back({.page = field("page"),
                               .number = field("number"),
                               .first = field("first"),
                               .last = field("last"),
                               .confidence = confidenceOf(field("confidence")),
                               .state = stateOf(field("state")),
                               .errata = field("errata")});
    }
    return draft;
}

void keepAddedColumns(const Draft& before, Draft& draft) {
    PageNames names;
    for (std::size_t i = 0; i < before.pages.size(); ++i)
        names.add(before.pages[i].page, i);
    for (DraftPage& row : draft.pages)
        if (const auto place = names.placeOf(row.page))
            row.errata = before.pages[*place].errata;
}

Result saveDraft(const Draft& draft, const std::filesystem::path& file) {
    return writeFileAtomically(file, formatDraft(draft));
}

} // namespace velmarin
