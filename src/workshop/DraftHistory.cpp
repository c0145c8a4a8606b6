#include "workshop/DraftHistory.h"

#include <map>
#include <utility>

namespace velmarin {

void DraftHistory::clear() {
    steps_.clear();
    done_ = 0;
}

void DraftHistory::add(Step before) {
    steps_.resize(done_);
    steps_.push_back(std::move(before));
    ++done_;
}

std::optional<std::string> DraftHistory::undo(Draft& draft) {
    if (!canUndo())
        return std::nullopt;
    return exchange(--done_, draft);
}

std::optional<std::string> DraftHistory::redo(Draft& draft) {
    if (!canRedo())
        return std::nullopt;
    return exchange(done_++, draft);
}

std::string DraftHistory::exchange(std::size_t step, Draft& draft) {
    std::map<std::string, DraftPage*> rows;
    for (DraftPage& row : draft.pages)
        rows.emplace(row.page, &row);
    for (DraftPage& kept : steps_[step].rows)
        if (const auto found = rows.find(kept.page); found != rows.end())
            std::swap(*found->second, kept);
    return steps_[step].page;
}

} // namespace velmarin
