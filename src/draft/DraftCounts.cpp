#include "draft/DraftCounts.h"

#include "text/NumberText.h"

namespace velmarin {

namespace {

std::string grouped(std::size_t number) {
    return Format(static_cast<double>(number), "#,##0");
}

} // namespace

DraftCounts::DraftCounts(const Draft& draft) {
    for (const DraftPage& page : draft.pages)
        ++pages_[static_cast<std::size_t>(page.state)];
}

std::string DraftCounts::text() const {
    std::string text;
    for (const PageState state : {PageState::Certain, PageState::Mended, PageState::Doubtful, PageState::Set})
        text += (text.empty() ? "" : ", ") + grouped(of(state)) + ' ' + std::string(nameOf(state));
    return text + ": " + grouped(toLookAt()) + " to look at";
}

} // namespace velmarin
