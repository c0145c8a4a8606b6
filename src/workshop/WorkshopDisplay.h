#pragma once

#include "files/Result.h"

#include <cstddef>
#include <vector>

namespace velmarin {

/// What a WorkshopModel tells its view. The view reads the rest from the model.
class WorkshopDisplay {
  public:
    virtual ~WorkshopDisplay() = default;

    /// Rows were added, removed, hidden or shown.
    virtual void showRows() = 0;
    /// These rows of the draft have other words or another state.
    virtual void showChangedRows(const std::vector<std::size_t>& rows) = 0;
    /// Another page is the current one, or its row has changed: the fields show its words.
    virtual void showCurrentPage() = 0;
    /// How many pages are in which state, and whether there is something to undo or redo.
    virtual void showCounts() = 0;
    /// No page is left to look at.
    virtual void showAllDone() = 0;
    virtual void showSaved(const Result& result) = 0;
    /// Another program has changed the draft, and this many of its rows were taken over.
    virtual void showTakenOver(std::size_t rows) = 0;
};

} // namespace velmarin
